// TemplateEntryEditor is what the editor of one template entry (frmBRTemplateAcc,
// "Buhalterinio įrašo šablonas") knows and decides, apart from its widgets: the account
// lists of both sides (the opening balances "0 Pradiniai likučiai" first), the factor,
// the addressee kinds each side's account allows, checked when the template already
// demands them, a fixed addressee of a kind, and what "Įrašyti" writes into the
// template's nested BRTemplateAcc and BRTemplateAddr. Nothing is stored here: the
// template's own editor saves the record.
#pragma once

#include "core/results.h"
#include "frame/orvo_object_uio.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo {

class TemplateEntryEditor {
public:
    struct AddresseeKind {
        QString FOID;
        QString Name;
        bool Checked = false;
        // A fixed addressee of the kind, or empty when only the kind is demanded.
        QString FixedFOIDR;
        QString FixedText;
        // The list's text: the kind's name, and " [addressee]" when one is fixed.
        QString Shown() const;
    };

    // `entryGuid` names the entry edited; empty for a new one.
    TemplateEntryEditor(OrvoObjectUIOPtr templateObject, QString entryGuid);

    // Reads the account list and the entry.
    ResultRecord Load();
    bool IsNew() const { return guid_.isEmpty(); }
    QString EntryGuid() const { return guid_; }

    // "account name" of every account, the opening balances first.
    const QStringList& AccountItems() const { return items_; }
    // The combos' texts and the factor box as typed.
    QString AccountDText, AccountCText, FactorText;

    // The kinds of a side (1 debit, -1 credit) for the account of `comboText`.
    ResultRecord LoadKinds(int sign, const QString& comboText);
    QVector<AddresseeKind>& Kinds(int sign) { return sign > 0 ? kindsD_ : kindsC_; }
    // A picked "OIDR_text" fixes the addressee of the kind and checks it.
    void SetFixed(int sign, int index, const QString& picked);

    // The account a combo's text stands for: its first word.
    static QString AccountOf(const QString& comboText);
    // The combo's text of an account: the item that starts with it, or the bare number.
    QString ItemOf(const QString& account) const;

    // "Įrašyti": the entry row (a new one gets its GUID and the template's), then the
    // demanded kinds of both sides: a row added for a newly checked kind, deleted for an
    // unchecked one.
    ResultRecord Write();

private:
    RecordsetPtr nested(const char* name) const;

    OrvoObjectUIOPtr object_;
    QString guid_;
    QStringList items_;
    QVector<AddresseeKind> kindsD_, kindsC_;
};

} // namespace orvo
