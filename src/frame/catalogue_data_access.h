// Catalogue (see catalogue_rights_forms.h): reaching the data objects whose Properties
// the shared routines need from anywhere, and the base currency of the book.
#pragma once

#include "core/value.h"
#include "frame/orvo_object_uio.h"

#include <QString>

namespace orvo::Catalogue {

// The operation object for queries: the caller itself when its OID is "O0201500",
// otherwise a blank one from the navigator of "O0201500" (the caller lets it go when
// done). Null when neither can be had.
OrvoObjectUIOPtr GetOperationUIO(const OrvoObjectUIOPtr& caller);
// The same for the operation group object "O0201400", which serves PresetAccounts.
OrvoObjectUIOPtr GetGroupUIO(const OrvoObjectUIOPtr& caller);

// GetConstant("BaseCurrency") of the session; Null without a session.
Value GetBaseCurrency();
// Whether the base currency is "EUR".
bool BaseIsEuro();
// A rate as amounts need it, base currency per foreign unit: under a euro base the
// quoted rate (foreign units per euro) is turned over, 1 / rate; otherwise it stays.
// A zero rate stays 0 rather than dividing by it.
double RateToBase(double rate);
// A typed rate read under the book's base currency (core's RateFromText with
// BaseIsEuro()).
double RateFromText(const QString& text);

} // namespace orvo::Catalogue
