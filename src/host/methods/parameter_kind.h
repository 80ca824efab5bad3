// The kinds of value a business-object method declares for its parameters, and the
// reading of one parsed value as its kind. Reading is tolerant where the component
// is known to vary (a number in quotes, a comma as the decimal mark inside quotes,
// dates with dots or dashes) and strict elsewhere, so that a wrong call is refused
// with a clear text instead of running on a guessed value.
#pragma once

#include "core/value.h"
#include "host/methods/parameter_text.h"

#include <QString>

namespace orvo::host {

enum class ParameterKind {
    Text,    // any value, as written; an unquoted number keeps its digits as written
    Integer, // a signed 32-bit whole number, quoted or not: 17, '17', -1
    Number,  // a double: 12.5, '12.5', '12,5', 1E-05
    Date,    // a quoted date yyyy.mm.dd or yyyy-mm-dd that exists in the calendar
    Boolean, // True/False (any case, quoted or not) or a number: 0 is false, else true
    OIDR,    // a reference: a letter, seven digits and the record number, or '' for none
};

// The kind as the registry's listing shows it: text, integer, number, date, boolean, OIDR.
QString ParameterKindName(ParameterKind kind);
// The kind as a refusal names it to the user, in Lithuanian.
QString ParameterKindDescription(ParameterKind kind);

// Reads a parsed value as the kind. False, leaving `out` untouched, when it cannot:
// an integer out of range, a date that does not exist, a word where a number belongs.
// Integer gives qint32, Number double, Date QDate, Boolean bool, Text and OIDR text
// (an OIDR without the blanks that a fixed-width column leaves after it).
bool ReadParameterValue(const ParameterToken& token, ParameterKind kind, Value* out);

} // namespace orvo::host
