// Tolerant readers of nullable fields: a field read from a recordset may be Null, and
// the editors want a plain number, text or date to work with. Null gives the neutral
// value (0, "", or the caller's default date); any other value is converted by Value's
// own rules, and a value that cannot be converted reads as the neutral value too.
#pragma once

#include "core/value.h"

#include <QDate>
#include <QString>

namespace orvo {

// Null gives 0; otherwise the value as a signed 32-bit number (a fraction rounds half to
// even; out of range, or not a number, gives 0).
qint32 NzLong(const Value& value);
// Null gives 0; otherwise the value as a signed 16-bit number, with NzLong's rules.
qint16 NzInt(const Value& value);
// Null gives 0; otherwise the value as a record number (the whole part of a stored
// number, beyond the 32 bits of NzLong).
qint64 NzId(const Value& value);
// Null gives 0.0; otherwise the value as a double (text in either decimal mark).
double NzDouble(const Value& value);
// Null gives ""; otherwise the value's text (numbers with a dot, dates as yyyy-MM-dd).
QString NzString(const Value& value);
// Null gives `defaultDate`; otherwise the value's date (the date of a date-time); a value
// that is not a date gives `defaultDate` too.
QDate NzDate(const Value& value, const QDate& defaultDate);

} // namespace orvo
