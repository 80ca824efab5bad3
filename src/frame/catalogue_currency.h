// Catalogue (see catalogue_rights_forms.h): the currencies of the book as the editors
// use them, and a sum in words.
#pragma once

#include "core/dictionary.h"
#include "frame/combo_control.h"
#include "frame/orvo_object_uio.h"

#include <QDate>
#include <QString>

namespace orvo::Catalogue {

// Currency code to rate on `date`, from the operation object's command GetCurrencyList
// (CurrencyRate when `useCurrencyRate`, else Rate); never null: a failure gives a new
// empty map.
DictionaryPtr CurrencyListFor(const OrvoObjectUIOPtr& caller, const QDate& date,
                              bool useCurrencyRate);

// Three blanks (no currency) first, then each code of the map; `selected` is chosen
// when it is there, else the first item.
void FillCurrencyCombo(ComboControl& combo, const DictionaryPtr& map, const QString& selected);

// The stored currency object (O0002200) of a three-letter code: found by CurrencyByCode
// (the code in single quotes) on a blank currency object and read through its
// navigator; null when there is none.
OrvoObjectUIOPtr CurrencyObject(const QString& currencyCode);

// The sum in words as the currency object words it: the currency is found by
// CurrencyByCode (the code in single quotes) on a blank "O0002200" object, its record
// is read through its navigator, and its command SumByWords is asked. Any failure
// gives the empty text.
QString SumInWords(double sum, const QString& currencyCode);

} // namespace orvo::Catalogue
