// The commands of the operation object that stamp or look beyond the operation:
// CreateProtocol (who made and last changed it, stamped just before a save),
// GetCurrencyList (the foreign currencies and their rates on a date), CurrencyRates
// (the host's rates of a currency) and CheckContractSums (a warning when the entries
// referring to a contract take it over its value).
#pragma once

#include "core/results.h"
#include "core/value.h"

#include <QString>

namespace orvo {

class UIO0201500;

class RecordCommands {
public:
    explicit RecordCommands(UIO0201500& operation) : op_(operation) {}

    // The user's reference and name come from the session: the user's Code is taken as
    // the reference. A new operation (OIDR shorter than nine characters) gets the
    // Created... stamps; every one gets the Changed... stamps. Names are cut to the
    // fields' defined size. Value true.
    ValueResult CreateProtocol();

    // GetCurrencyList([Date [, UseCurrencyRate]]): a dictionary of currency code to
    // rate (CurrencyRate when the flag is true, else Rate) of every currency that is
    // not the base one (BaseCurrency not 1), first row of a code winning. The map is
    // empty when the list cannot be read (the query has shown why).
    ValueResult GetCurrencyList(const ValueArray& parameters);

    // CurrencyRates([Rate, Date]): the host's currency object (O0002200) runs its own
    // CurrencyRates with the rate and the date (today when none). Value false when the
    // host has no such object.
    ValueResult CurrencyRates(const ValueArray& parameters);

    // CheckContractSums: with the setting IsShowMessageForContractSumOver of section
    // Contract other than "0", the first entry that refers to a contract (O3010100)
    // names it, and when the contract's TradeCommonSum exceeds its ContractTotalSum
    // the answer is Code 4 and "Sutarties Nr. <name> vertė viršyta <excess> <currency>!".
    ValueResult CheckContractSums();

    // A number as the "#.00" format writes it: two decimals after a comma, no grouping,
    // no zero before the comma (0.5 gives ",50").
    static QString FormatHashDotZeroZero(double value);

private:
    UIO0201500& op_;
};

} // namespace orvo
