// Value is the variant that every field, parameter and result of the system carries:
// a real Null, booleans, 16- and 32-bit integers, doubles, text, dates and date-times,
// arrays of values, and shared references to recordsets, dictionaries and objects.
// Conversions follow the tolerant rules an accountant's data needs (a number stored as
// text reads as a number); a conversion that cannot be made says so through `ok`.
#pragma once

#include "core/object_base.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QVector>
#include <memory>
#include <utility>
#include <variant>

namespace orvo {

class Recordset;
class Dictionary;
using RecordsetPtr = std::shared_ptr<Recordset>;
using DictionaryPtr = std::shared_ptr<Dictionary>;

class Value;
using ValueArray = QVector<Value>;

class Value {
public:
    enum class Kind {
        Null,
        Bool,
        Int16,
        Int32,
        Double,
        Text,
        Date,
        DateTime,
        Array,
        Recordset,
        Dictionary,
        Object
    };

    Value() = default;
    Value(bool v) : data_(v) {}
    Value(qint16 v) : data_(v) {}
    Value(qint32 v) : data_(v) {}
    Value(double v) : data_(v) {}
    Value(const QString& v) : data_(v) {}
    Value(QString&& v) : data_(std::move(v)) {}
    Value(const char* v) : data_(QString::fromUtf8(v)) {}
    Value(const QDate& v);
    Value(const QDateTime& v);
    Value(const ValueArray& v) : data_(std::make_shared<ValueArray>(v)) {}
    Value(RecordsetPtr v);
    Value(DictionaryPtr v);
    Value(ObjectPtr v);

    static Value Null() { return Value(); }

    Kind kind() const { return static_cast<Kind>(data_.index()); }
    bool isNull() const { return kind() == Kind::Null; }
    bool isNumeric() const;
    bool isText() const { return kind() == Kind::Text; }
    bool isDateLike() const { return kind() == Kind::Date || kind() == Kind::DateTime; }

    // Conversions. `ok` (when given) is set false if the value cannot be read as asked;
    // the result is then 0, false, an empty text or an invalid date.
    bool toBool(bool* ok = nullptr) const;
    qint16 toInt16(bool* ok = nullptr) const;
    qint32 toInt32(bool* ok = nullptr) const;
    double toDouble(bool* ok = nullptr) const;
    // Text of the value: numbers with a dot and no grouping, dates as yyyy-MM-dd,
    // date-times as yyyy-MM-ddThh:mm:ss, booleans as "True"/"False", Null as "".
    QString toString() const;
    // The text a Text value holds, read in place (no copy, no count of references); empty
    // for any other kind. Valid while the value lives unchanged.
    QStringView textView() const {
        const QString* text = std::get_if<QString>(&data_);
        return text ? QStringView(*text) : QStringView();
    }
    QDate toDate(bool* ok = nullptr) const;
    QDateTime toDateTime(bool* ok = nullptr) const;
    const ValueArray& toArray() const;
    RecordsetPtr toRecordset() const;
    DictionaryPtr toDictionary() const;
    ObjectPtr toObject() const;

    // Ordering for sorting and filtering: Null sorts first; numbers (and booleans) by
    // value; texts case-insensitively; dates by time. Values of kinds that do not
    // compare give `comparable` false and 0.
    int compare(const Value& other, bool* comparable = nullptr) const;

    // Equality of the same value: 1 == 1.0, "a" != "A" (exact), Null == Null.
    friend bool operator==(const Value& a, const Value& b);
    friend bool operator!=(const Value& a, const Value& b) { return !(a == b); }

    static QString KindName(Kind k);

private:
    using Data =
        std::variant<std::monostate, bool, qint16, qint32, double, QString, QDate, QDateTime,
                     std::shared_ptr<ValueArray>, RecordsetPtr, DictionaryPtr, ObjectPtr>;
    Data data_;
};

} // namespace orvo
