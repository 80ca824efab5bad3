// The money of one entry as AddBR and AddTemplate take it: the debit side (Sum, CurrD,
// RateD), the credit side (SumC, CurrC, RateC) and Sign, which tells the sides in
// currency (1 debit, -1 credit, 0 both or none). It holds the rules that turn these into
// a base sum, check them, and write the euro rates, the BRCurrency rows and the
// addressees of a new entry, so that a plain entry and a template's entries are made
// alike.
#pragma once

#include "core/dictionary.h"
#include "core/recordset.h"
#include "operations/command_failure.h"

#include <QString>

namespace orvo {

class CommandParameters;

class EntrySides {
public:
    double Sum = 0;
    qint16 Sign = 0;
    QString CurrD;
    double RateD = 0;
    double SumC = 0;
    QString CurrC;
    double RateC = 0;

    // Three letters that are not three blanks.
    static bool IsCurrency(const QString& code);

    // The sides as AddBR and AddTemplate take them by position: the sum at `first`, the
    // addressee array after it (read by the caller), then Sign, CurrD, RateD, SumC, CurrC
    // and RateC.
    static EntrySides FromParameters(CommandParameters& p, int first);

    // The base sum: from the debit side's currency when RateD > 0, else from the credit
    // side's when SumC > 0, else Sum itself; each by the base-sum rounding.
    double BaseSum() const;

    // The first fault of the parameters, as the report "Method <command>_1:", line
    // break, "Klaidingi parametrai !", line break, and the values in single quotes
    // (accounts, debit Sum, CurrD, RateD, credit SumC, CurrC, RateC, Sign); empty when
    // they are sound. Sign must be 1, -1 or 0; with `checkAccounts` both accounts must
    // be given; a side with a currency needs its rate and sum above 0; a debit rate
    // needs a debit sum, and on the credit side a rate and a sum need each other (the
    // debit Sum alone is a base sum).
    QString ParameterFault(const QString& command, const QString& accountD, const QString& accountC,
                           bool checkAccounts) const;

    // "Method <command>_2:", line break, "Klaidingi parametrai !", line break, "n=" and
    // the last index, when the addressees are not whole triples; else empty.
    static QString AddresseesFault(const QString& command, const ValueArray& addressees);

    // Whether both sides carry a currency sum whose base sums differ.
    bool SidesDisagree() const;

    // On the current entry: the reciprocal of the rate, to six places, into the rate
    // field named by Sign (RateD: Sign 1 debit, else credit; else RateC: Sign -1 debit,
    // else credit).
    void WriteEuroRates(const RecordsetPtr& br, MaybeFailure& failure) const;

    // A currency equal to the base currency means none: it becomes three blanks.
    void BlankBaseCurrency(const QString& baseCurrency);

    // The BRCurrency rows of the entry `guid`.
    void WriteCurrencyRows(const RecordsetPtr& brCurrency, const QString& guid,
                           MaybeFailure& failure) const;

    // A BRProperties row per triple (Sign, FOIDR, ShowString) whose Sign is 1 or -1 and
    // whose FOIDR is longer than eight characters, ShowString cut to 800. With
    // `demands` (the GetRequiredAddr map of the entry) only the addressees whose side
    // and kind the entry demands are laid on it.
    static void WriteProperties(const RecordsetPtr& brProperties, const QString& guid,
                                const ValueArray& addressees, const DictionaryPtr& demands,
                                MaybeFailure& failure);

private:
    void addCurrencyRow(const RecordsetPtr& brCurrency, const QString& guid, qint16 sign,
                        double rate, double sum, const QString& code, MaybeFailure& failure) const;
};

} // namespace orvo
