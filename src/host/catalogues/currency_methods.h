// The business-object methods of currencies and their daily rates:
//   GetCurrencyList('yyyy.mm.dd')  every currency with its latest rate on or before the
//                                  date: OIDR, Code, Name, BaseCurrency (1 for the base),
//                                  Rate (base currency per unit), CurrencyRate (the rate
//                                  as quoted: under a euro base, units per euro), RateDate
//   GetCurrencyByCode('USD')       the currency's record: OIDR, Code, Name, BaseCurrency
//   SaveDayRate('USD','yyyy.mm.dd', Rate [, CurrencyRate])  keeps the day's rate; Rate is
//                                  base currency per unit, CurrencyRate defaults to the
//                                  quoted form (its reciprocal under a euro base)
#pragma once

#include "core/results.h"

namespace orvo::host {

class MethodRegistry;

ResultRecord RegisterCurrencyMethods(MethodRegistry& methods);

} // namespace orvo::host
