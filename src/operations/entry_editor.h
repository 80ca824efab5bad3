// EntryEditor is what the entry card (frmBROperRecord) knows and decides, apart from its
// widgets: the entry shown (accounts, base sum, the currency of each side with its rate
// and sum, the addressees of each side, the trade and VAT marks), which fields a
// restricted card locks, the base sum worked out from a side's currency, the question
// on a changed rate, the checks of a save in their order with the field that takes the
// focus, the save into the entry with its currency and addressee rows, and moving to
// the next or previous entry. The account and currency combos are reached through the
// frame's combo interface, so the shared Catalogue routines fill them; the card's
// widgets adapt real combos, the tests memory ones.
#pragma once

#include "core/dictionary.h"
#include "core/recordset.h"
#include "frame/combo_control.h"
#include "frame/orvo_object_uio.h"

#include <QDate>
#include <QStringList>
#include <QVector>

namespace orvo {

class EntryEditor {
public:
    // 0 debit, 1 credit.
    enum Side { Debit = 0, Credit = 1 };

    // One line of an addressee list: the kind and its name, the addressee (FOIDR) and
    // its text, and whether the accounts demand the kind.
    struct AddresseeLine {
        QString Kind;
        QString Name;
        QString FOIDR;
        QString ShowString;
        bool Demanded = false;
    };

    // The three fields of one side's currency.
    struct CurrencySide {
        QString Rate;
        QString Sum;
        // The code shown before the last change, to tell a real change.
        QString Code;
    };

    struct CheckOutcome {
        bool Passed = true;
        QString Message;
        QString Focus;
    };

    EntryEditor(OrvoObjectUIOPtr operation, ComboControl& accountD, ComboControl& accountC,
                ComboControl& currD, ComboControl& currC);

    // The settings ShowBR hands over, before Load.
    RecordsetPtr Entries;
    QString GUID;
    bool Restricted = false;
    bool CurrenciesEditable = true;
    qint16 Tab = 0;
    QString AllowedKinds;

    // Load: the base currency, the kinds of addressee, the entry, the VAT tariffs, the
    // row. False when the entry is not there.
    bool Load();
    // Shows the row the filter stands on.
    void ShowRow();

    // What the card shows.
    QString BaseCurrency;
    bool BaseIsEuro = false;
    QString SumLabel() const;
    QDate Date;
    QString Info;
    QString Suma;
    qint16 TradeType = 0;
    bool VATFlag = false;
    qint16 VATIndication = 0;
    QString VATTariff;
    QStringList Tariffs;
    CurrencySide Sides[2];
    QVector<AddresseeLine> Lines[2];
    // Kind (FOID) to name, from the AddresseeList.
    DictionaryPtr KindNames;
    DictionaryPtr Accounts;
    DictionaryPtr Rates;
    bool AccountOk[2] = {false, false};
    // An account longer than one character begins with "0".
    bool ZeroPrefixedAccounts = false;
    bool CurrenciesReadOnly = false;
    bool Changed = false;
    // 0 nothing written, 1 written, 2 write the operation, 3 write it and open a new one.
    qint16 Result = 0;

    // Which fields may be edited.
    bool FieldEnabled(const QString& control) const;
    // cmbVAT, chkVATFlag, cmbVATTariff, lblVAT follow the trade type.
    bool VATEnabled() const;

    static QStringList TradeTypes();
    static QStringList VATIndications();
    static QStringList DefaultTariffs();

    // A side's sum or rate left: both formatted, then the base sum from them.
    void SideLeft(Side side);
    // The base sum from a side's currency sum and rate, when both are above 0.
    void RecomputeSum(Side side);
    // A currency combo changed to its present text.
    void CurrencyChanged(Side side);
    // dtpDate left: a new date reads the rates of that date.
    void DateLeft(const QDate& date);
    // An account combo left: the check of the account, and the demands of the accounts.
    void AccountLeft(Side side);
    // cmbTradeOperationTypes changed.
    void TradeTypeChanged(qint16 type);
    // cmbVATTariff typed or chosen.
    void TariffChanged(const QString& text);

    // Sets an addressee on a side's line of a kind (a new line when the kind has none).
    void SetAddressee(Side side, const QString& kind, const QString& foidr,
                      const QString& showString);
    // "Panaikinti": the line's value goes; a line of a kind not demanded goes as well.
    void ClearAddressee(Side side, int line);
    // The kinds the addressee menu offers: the allowed ones, each with its name.
    QStringList OfferedKinds() const;

    // The checks of a save, in order; the first failure shows its warning.
    CheckOutcome Check();
    // What the last save's checks found.
    CheckOutcome LastCheck;
    // The checks, then the save into the entry. False when a check failed.
    bool Save();
    // cmdWrite (1), mnuSaveOper (2), mnuSaveOperAndNew (3): true when saved.
    bool SaveWith(qint16 result);

    // cmdNext / cmdPrevious: false at the end of the list or when the user stays.
    bool Move(int step);

private:
    ComboControl& combo(Side side) const { return side == Debit ? accountD_ : accountC_; }
    ComboControl& currency(Side side) const { return side == Debit ? currD_ : currC_; }
    void readRates();
    void readDemands();
    QString kindName(const QString& kind) const;
    RecordsetPtr nested(const QString& name) const;

    OrvoObjectUIOPtr op_;
    ComboControl& accountD_;
    ComboControl& accountC_;
    ComboControl& currD_;
    ComboControl& currC_;
};

} // namespace orvo
