// Amounts in Lithuanian words, as the currency object writes them on cash orders,
// payment orders and other printed documents.
//
// The format is the usual accounting one: the whole units in words, the currency's
// name in the form the number governs, then the cents as two digits and "ct", with
// the first letter capitalised:
//   1234.56 EUR -> "Vienas tūkstantis du šimtai trisdešimt keturi eurai 56 ct"
//   0 EUR       -> "Nulis eurų 00 ct"
//   -5 EUR      -> "Minus penki eurai 00 ct"
// A hundred, a thousand, a million and a billion are written with "vienas" ("vienas
// šimtas", "vienas tūkstantis"), as accounting documents do. The noun after a number
// follows its last two digits: ending in 1 but not 11, the nominative singular
// (euras); in 2..9 but not 12..19, the nominative plural (eurai); otherwise (0, 10..19,
// whole tens) the genitive plural (eurų). The same rule gives tūkstantis, tūkstančiai,
// tūkstančių and the forms of milijonas and milijardas.
//
// Currencies with names: EUR (euras), LTL, also written LT or Lt (litas), USD (JAV
// doleris), GBP (svaras sterlingų). Any other code is written as the code itself,
// upper-cased and unchanged by the number ("Du šimtai CHF 50 ct"); "ct" stands for
// the hundredth part in every currency. A code of blanks means the base currency.
//
// The amount is first rounded to cents by the base-sum rule: add 0.00001, then round
// half to even at two places. Amounts whose whole part has more than twelve digits,
// and values that are not numbers, give the empty text, which callers take as
// "cannot be written".
#pragma once

#include <QString>
#include <QtGlobal>

namespace orvo::host {

QString SumByWords(double sum, const QString& currencyCode,
                   const QString& baseCurrency = QStringLiteral("EUR"));

// A whole number from 0 to 999 999 999 999 in lower-case words ("nulis", "vienas
// tūkstantis du šimtai"); the empty text outside that range.
QString NumberInWords(qint64 number);

} // namespace orvo::host
