#include "core/value.h"

#include <cmath>
#include <limits>

namespace orvo {

Value::Value(const QDate& v) {
    if (v.isValid())
        data_ = v;
}

Value::Value(const QDateTime& v) {
    if (v.isValid())
        data_ = v;
}

Value::Value(RecordsetPtr v) {
    if (v)
        data_ = std::move(v);
}

Value::Value(DictionaryPtr v) {
    if (v)
        data_ = std::move(v);
}

Value::Value(ObjectPtr v) {
    if (v)
        data_ = std::move(v);
}

bool Value::isNumeric() const {
    switch (kind()) {
    case Kind::Bool:
    case Kind::Int16:
    case Kind::Int32:
    case Kind::Double:
        return true;
    default:
        return false;
    }
}

namespace {

void setOk(bool* ok, bool v) {
    if (ok)
        *ok = v;
}

// Reads a text as a number the way stored data is written: a dot or a comma as the
// decimal mark, blanks ignored. Empty text is not a number.
bool textToDouble(const QString& text, double* out) {
    QString t = text.trimmed();
    t.remove(QChar(' '));
    t.remove(QChar(0x00A0));
    if (t.isEmpty())
        return false;
    t.replace(QChar(','), QChar('.'));
    bool ok = false;
    const double d = t.toDouble(&ok);
    if (ok)
        *out = d;
    return ok;
}

} // namespace

double Value::toDouble(bool* ok) const {
    setOk(ok, true);
    switch (kind()) {
    case Kind::Bool:
        return std::get<bool>(data_) ? -1.0 : 0.0;
    case Kind::Int16:
        return std::get<qint16>(data_);
    case Kind::Int32:
        return std::get<qint32>(data_);
    case Kind::Double:
        return std::get<double>(data_);
    case Kind::Text: {
        double d = 0;
        if (textToDouble(std::get<QString>(data_), &d))
            return d;
        break;
    }
    case Kind::Date:
        // Days since 1899-12-30, the serial date that the stored data uses.
        return QDate(1899, 12, 30).daysTo(std::get<QDate>(data_));
    case Kind::DateTime: {
        const QDateTime& dt = std::get<QDateTime>(data_);
        return QDate(1899, 12, 30).daysTo(dt.date()) +
               dt.time().msecsSinceStartOfDay() / 86400000.0;
    }
    default:
        break;
    }
    setOk(ok, false);
    return 0.0;
}

bool Value::toBool(bool* ok) const {
    setOk(ok, true);
    switch (kind()) {
    case Kind::Bool:
        return std::get<bool>(data_);
    case Kind::Int16:
    case Kind::Int32:
    case Kind::Double:
        return toDouble() != 0.0;
    case Kind::Text: {
        const QString t = std::get<QString>(data_).trimmed();
        if (t.compare("true", Qt::CaseInsensitive) == 0)
            return true;
        if (t.compare("false", Qt::CaseInsensitive) == 0)
            return false;
        double d = 0;
        if (textToDouble(t, &d))
            return d != 0.0;
        break;
    }
    default:
        break;
    }
    setOk(ok, false);
    return false;
}

namespace {
template <typename T> T roundedInt(double d, bool* ok) {
    // Conversion of a fractional number to an integer rounds half to even, as the
    // stored data's own integer conversion does.
    const double r = std::nearbyint(d);
    if (r < std::numeric_limits<T>::min() || r > std::numeric_limits<T>::max()) {
        setOk(ok, false);
        return 0;
    }
    return static_cast<T>(r);
}
} // namespace

qint16 Value::toInt16(bool* ok) const {
    bool k = false;
    const double d = toDouble(&k);
    if (!k || isDateLike()) {
        setOk(ok, false);
        return 0;
    }
    setOk(ok, true);
    return roundedInt<qint16>(d, ok);
}

qint32 Value::toInt32(bool* ok) const {
    bool k = false;
    const double d = toDouble(&k);
    if (!k || isDateLike()) {
        setOk(ok, false);
        return 0;
    }
    setOk(ok, true);
    return roundedInt<qint32>(d, ok);
}

QString Value::toString() const {
    switch (kind()) {
    case Kind::Null:
        return QString();
    case Kind::Bool:
        return std::get<bool>(data_) ? QStringLiteral("True") : QStringLiteral("False");
    case Kind::Int16:
        return QString::number(std::get<qint16>(data_));
    case Kind::Int32:
        return QString::number(std::get<qint32>(data_));
    case Kind::Double:
        return QString::number(std::get<double>(data_), 'g', 15);
    case Kind::Text:
        return std::get<QString>(data_);
    case Kind::Date:
        return std::get<QDate>(data_).toString(QStringLiteral("yyyy-MM-dd"));
    case Kind::DateTime:
        return std::get<QDateTime>(data_).toString(QStringLiteral("yyyy-MM-ddThh:mm:ss"));
    default:
        return QString();
    }
}

QDate Value::toDate(bool* ok) const {
    setOk(ok, true);
    switch (kind()) {
    case Kind::Date:
        return std::get<QDate>(data_);
    case Kind::DateTime:
        return std::get<QDateTime>(data_).date();
    case Kind::Text: {
        // Texts as the system writes dates: yyyy-mm-dd, yyyy.mm.dd, yyyy/mm/dd, or a
        // date-time whose date comes first.
        QString t = std::get<QString>(data_).trimmed();
        if (t.size() >= 10) {
            QString head = t.left(10);
            head.replace(QChar('.'), QChar('-')).replace(QChar('/'), QChar('-'));
            const QDate d = QDate::fromString(head, QStringLiteral("yyyy-MM-dd"));
            if (d.isValid() && (t.size() == 10 || t.at(10) == 'T' || t.at(10) == ' '))
                return d;
        }
        break;
    }
    default:
        break;
    }
    setOk(ok, false);
    return QDate();
}

QDateTime Value::toDateTime(bool* ok) const {
    if (kind() == Kind::DateTime) {
        setOk(ok, true);
        return std::get<QDateTime>(data_);
    }
    if (kind() == Kind::Text) {
        const QString t = std::get<QString>(data_).trimmed();
        for (const auto* fmt :
             {"yyyy-MM-ddThh:mm:ss", "yyyy-MM-dd hh:mm:ss", "yyyy.MM.dd hh:mm:ss"}) {
            const QDateTime dt = QDateTime::fromString(t, QString::fromLatin1(fmt));
            if (dt.isValid()) {
                setOk(ok, true);
                return dt;
            }
        }
    }
    bool k = false;
    const QDate d = toDate(&k);
    setOk(ok, k);
    return k ? QDateTime(d, QTime(0, 0)) : QDateTime();
}

const ValueArray& Value::toArray() const {
    static const ValueArray empty;
    if (kind() == Kind::Array)
        return *std::get<std::shared_ptr<ValueArray>>(data_);
    return empty;
}

RecordsetPtr Value::toRecordset() const {
    return kind() == Kind::Recordset ? std::get<RecordsetPtr>(data_) : nullptr;
}

DictionaryPtr Value::toDictionary() const {
    return kind() == Kind::Dictionary ? std::get<DictionaryPtr>(data_) : nullptr;
}

ObjectPtr Value::toObject() const {
    return kind() == Kind::Object ? std::get<ObjectPtr>(data_) : nullptr;
}

int Value::compare(const Value& other, bool* comparable) const {
    setOk(comparable, true);
    if (isNull() || other.isNull()) {
        if (isNull() && other.isNull())
            return 0;
        return isNull() ? -1 : 1;
    }
    if (isDateLike() || other.isDateLike()) {
        bool a = false, b = false;
        const QDateTime x = toDateTime(&a), y = other.toDateTime(&b);
        if (a && b)
            return x < y ? -1 : (x > y ? 1 : 0);
        setOk(comparable, false);
        return 0;
    }
    if (isNumeric() || other.isNumeric()) {
        bool a = false, b = false;
        const double x = toDouble(&a), y = other.toDouble(&b);
        if (a && b)
            return x < y ? -1 : (x > y ? 1 : 0);
        setOk(comparable, false);
        return 0;
    }
    if (isText() && other.isText()) {
        const int c = QString::compare(toString(), other.toString(), Qt::CaseInsensitive);
        return c < 0 ? -1 : (c > 0 ? 1 : 0);
    }
    setOk(comparable, false);
    return 0;
}

bool operator==(const Value& a, const Value& b) {
    if (a.isNull() || b.isNull())
        return a.isNull() && b.isNull();
    if (a.isNumeric() && b.isNumeric())
        return a.toDouble() == b.toDouble();
    if (a.isDateLike() && b.isDateLike())
        return a.toDateTime() == b.toDateTime();
    if (a.kind() != b.kind())
        return false;
    switch (a.kind()) {
    case Value::Kind::Text:
        return a.toString() == b.toString();
    case Value::Kind::Array:
        return a.toArray() == b.toArray();
    case Value::Kind::Recordset:
        return a.toRecordset() == b.toRecordset();
    case Value::Kind::Dictionary:
        return a.toDictionary() == b.toDictionary();
    case Value::Kind::Object:
        return a.toObject() == b.toObject();
    default:
        return false;
    }
}

QString Value::KindName(Kind k) {
    switch (k) {
    case Kind::Null:
        return QStringLiteral("null");
    case Kind::Bool:
        return QStringLiteral("bool");
    case Kind::Int16:
        return QStringLiteral("int16");
    case Kind::Int32:
        return QStringLiteral("int32");
    case Kind::Double:
        return QStringLiteral("double");
    case Kind::Text:
        return QStringLiteral("text");
    case Kind::Date:
        return QStringLiteral("date");
    case Kind::DateTime:
        return QStringLiteral("datetime");
    case Kind::Array:
        return QStringLiteral("array");
    case Kind::Recordset:
        return QStringLiteral("recordset");
    case Kind::Dictionary:
        return QStringLiteral("dictionary");
    case Kind::Object:
        return QStringLiteral("object");
    }
    return QString();
}

} // namespace orvo
