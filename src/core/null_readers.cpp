#include "core/null_readers.h"

namespace orvo {

qint64 NzId(const Value& value) {
    return value.isNull() ? 0 : static_cast<qint64>(value.toDouble());
}

qint32 NzLong(const Value& value) {
    if (value.isNull())
        return 0;
    bool ok = false;
    const qint32 result = value.toInt32(&ok);
    return ok ? result : 0;
}

qint16 NzInt(const Value& value) {
    if (value.isNull())
        return 0;
    bool ok = false;
    const qint16 result = value.toInt16(&ok);
    return ok ? result : 0;
}

double NzDouble(const Value& value) {
    if (value.isNull())
        return 0.0;
    bool ok = false;
    const double result = value.toDouble(&ok);
    return ok ? result : 0.0;
}

QString NzString(const Value& value) {
    if (value.isNull())
        return QString();
    return value.toString();
}

QDate NzDate(const Value& value, const QDate& defaultDate) {
    if (value.isNull())
        return defaultDate;
    bool ok = false;
    const QDate result = value.toDate(&ok);
    return ok && result.isValid() ? result : defaultDate;
}

} // namespace orvo
