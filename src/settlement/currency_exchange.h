// CurrencyExchange holds what the window of currency purchase and sale
// (frmCurrencyExchange) decides, without the window: money leaves the account of the
// credit side and arrives on the account of the debit side, each side in its own
// currency at its own book rate. The movement is entered at the smaller of the two base
// values, the rate of the larger side recomputed to match, and the difference goes to
// the account of positive or negative rate influence. The two influence accounts the
// user last chose are remembered in the settings (Clone536, Clone636) and win over the
// chart's roles 536 and 636.
#pragma once

#include "core/dictionary.h"
#include "core/recordset.h"
#include "frame/orvo_object_uio.h"

#include <QDate>
#include <QString>

namespace orvo {

class CurrencyExchange {
public:
    // One frame of the window (frameD or frameC).
    struct Side {
        QString Account;
        // AccOIDR of an own bank account from MyFirmAccounts; empty for none.
        QString BankAccount;
        // Three letters, or three blanks for the base currency.
        QString Currency = QStringLiteral("   ");
        // The rate as typed: as the currency is quoted (under a euro base, currency units
        // per euro).
        QString RateText;
        QString SumText;
    };

    // What a successful cmdOK worked out, for the window and the tests.
    struct Outcome {
        double BaseD = 0;
        double BaseC = 0;
        double RateD = 0;
        double RateC = 0;
        double Difference = 0;
    };

    explicit CurrencyExchange(OrvoObjectUIOPtr operation);

    static QString SettingsSection();

    // Opening: the chart, the influence accounts (settings first, then the roles, with a
    // warning when a role has no account), the own bank accounts (the main one first
    // and chosen on both sides), the date of the operation and its rates.
    void Open();
    void SetDate(const QDate& newDate);
    // The day's rate of a currency as it is typed; empty for the base currency or one
    // without a rate.
    QString DayRateText(const QString& code) const;

    // cmdOK: the checks, the movement, the difference and the settings. False when a
    // check stopped it (the warning shown, the window stays) or AddBR refused; entries
    // already made stay.
    bool Post();

    // Saves the typed rate of a side as the day's rate of its currency when it differs
    // from the one kept; false when nothing was saved.
    bool SaveDayRate(const Side& side);

    Side debit;
    Side credit;
    QString accountPositive;
    QString accountNegative;
    QDate date;
    DictionaryPtr accounts;
    DictionaryPtr currencyRates;
    RecordsetPtr bankAccounts;
    QString title;
    Outcome outcome;

private:
    ValueArray bankAddressees(const Side& side, qint16 sign) const;

    OrvoObjectUIOPtr op_;
};

} // namespace orvo
