// DebtsCover is what the debts cover window (frmDebtsCover) knows and decides, apart
// from its widgets: two sides, each an account, a debit or credit option and an
// addressee with the list of its open debts; the saved account pairs ("variants"); the
// list of addressees that have debts on both accounts, marked once covered; filling and
// checking the lists; and the save, which posts the checked rows into the operation
// through DebtsCoverPosting, notes the covered sides and moves on to the next addressee.
// The operation is not stored here: the editor behind the window saves it.
//
// The primary side is the one of txtAddrC, cmbAccC and lvwBRPrimary, the secondary the
// one of txtAddrD, cmbAccD and lvwBRSecondary. Boxes go through Messages; the widget
// shows what this object holds and calls it on every click.
#pragma once

#include "core/dictionary.h"
#include "frame/orvo_object_uio.h"
#include "settlement/debts_cover_list.h"

#include <QDate>
#include <QStringList>
#include <functional>

namespace orvo {

class DebtsCover {
public:
    explicit DebtsCover(OrvoObjectUIOPtr operation);

    OrvoObjectUIOPtr Object() const { return op_; }

    // Opening: the date, the rates, the accounts, the rate-change accounts (a warning
    // when one is missing, and no filling from then on) and the saved variants.
    void Open();

    // The state the window shows.
    QDate coverDate;
    QString accountPrimary;
    QString accountSecondary;
    QString accountRateIncome;
    QString accountRateExpense;
    DictionaryPtr currencyRates;
    // Account number to name, for the two account boxes.
    DictionaryPtr accounts;
    // The side keys covered since the window opened, in order.
    QStringList coveredKeys;
    // cmbAddr: the texts and, in the same order, the references.
    QStringList addresseeTexts;
    QStringList addressees;
    int addresseeIndex = -1;
    // lblFirms and the kind of addressee that cmdGo lists.
    QString firmsLabel;
    QString addresseeKind = QStringLiteral("O0000100");
    // cmbVariants.
    QStringList variants;
    // optDebC (and so optCredD) when true, optCredC and optDebD otherwise.
    bool primaryDebit = true;
    // optDateByCoveredOperations when true, optDateByBROper otherwise.
    bool dateByCovered = false;
    // txtAddrC and txtAddrD: a reference and its text.
    QString addrPrimary;
    QString addrPrimaryText;
    QString addrSecondary;
    QString addrSecondaryText;
    DebtsCoverList primary;
    DebtsCoverList secondary;
    // The rate-change accounts are missing: the lists are never filled.
    bool fillRefused = false;
    // After the first cover the date is fixed for the rest of the opening.
    bool dateLocked = false;
    QString exitCaption = QStringLiteral("Uždaryti");
    QString status;

    // Called with each status text while long steps run, so the window can paint it.
    std::function<void(const QString&)> StatusChanged;
    // Called when the operation's date, comment or entries changed, so that an editor
    // open on the same operation shows them.
    std::function<void()> OperationChanged;

    // The variant of the accounts and options chosen: "<debit> D - <credit> K".
    QString VariantText() const;
    // The debit and credit accounts of a variant text; false when it has no " D - ".
    static bool ParseVariant(const QString& text, QString* debit, QString* credit);
    // A variant chosen in cmbVariants: accounts and options set, addressees and lists
    // emptied.
    void ChooseVariant(const QString& text);
    // mnuAddVariant and mnuDeleteVariant; the list is stored in the user's settings.
    bool SaveVariant();
    void DeleteVariant(int index);
    static QString SettingsKey() { return QStringLiteral("DebtsCoverParameters"); }
    static QString SettingsSection() { return QStringLiteral("O0201500"); }

    // The key of each side: account, blank, D or K, and the addressee's reference.
    QString PrimaryKey(const QString& addressee) const;
    QString SecondaryKey(const QString& addressee) const;
    bool Covered(const QString& addressee) const;

    // The side chosen for the primary list; the secondary takes the other.
    void SetPrimaryDebit(bool debit);
    void SetAccounts(const QString& primaryAccount, const QString& secondaryAccount);
    void SetDate(const QDate& date);
    // A reference picked by hand for a side: the other side takes it when it has none.
    void SetAddressee(bool primarySide, const QString& reference, const QString& text);
    void ClearAddressee(bool primarySide);
    bool ValidAccount(const QString& account) const;

    // cmdGo with no addressee: the addressees of `kind` with debts on both accounts.
    bool ListAddressees(const QString& kind);
    static QString KindLabel(const QString& kind);
    // A row of cmbAddr chosen: false for one already covered (with the box), else the
    // lists are filled for it.
    bool ChooseAddressee(int index);
    // cmdGo with addressees, or after a choice: the two lists; false when refused.
    bool Fill();
    // Any change of account, date, side or addressee: both lists and sums emptied.
    void ClearLists();

    // Rows checked in both lists: cmdOK and cmdPrint may run.
    bool CanSave() const;
    // mnuRates on a row of a side: the host's rate dialog for the row's currency; the
    // lists are revalued and refilled when the rate changed. False when nothing changed.
    bool InputRate(bool primarySide, int row);
    static QString SumText(double sum);

    // cmdOK: the checks, the posting, the covered keys and the next addressee. False
    // when refused or when AddBR failed.
    bool Save();
    // The next addressee not yet covered after the current one; false when none.
    bool Advance();

private:
    QString readDebts(bool primarySide, RecordsetPtr* out);
    void setStatus(const QString& text);
    void storeVariants();
    void markCovered(int index);

    OrvoObjectUIOPtr op_;
    // The variant text and the rows of cmbAddr when the last cover was saved.
    QString coveredVariant_;
};

} // namespace orvo
