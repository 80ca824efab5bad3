// Field types and definitions of a Recordset. The numbers are those the stored data of
// the system has always used (so a "type 131" decimal field and a "type 14" field mean
// what they always meant); a Chapter field holds a nested recordset per row.
#pragma once

#include <QString>
#include <QVector>
#include <memory>

namespace orvo {

enum class FieldType : int {
    Empty = 0,
    SmallInt = 2, // signed 16-bit
    Integer = 3,  // signed 32-bit
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7, // date (and time of day when given)
    BSTR = 8,
    Boolean = 11,
    Variant = 12, // any value
    Decimal = 14,
    TinyInt = 16,
    BigInt = 20,
    Numeric = 131,
    DBDate = 133,
    DBTime = 134,
    DBTimeStamp = 135,
    Chapter = 136, // a nested recordset
    VarChar = 200,
    LongVarChar = 201,
    VarWChar = 202, // text of at most definedSize characters
    LongVarWChar = 203,
};

// Field attribute bits, as the stored data carries them.
namespace FieldAttr {
inline constexpr int Updatable = 0x4;
inline constexpr int Fixed = 0x10;
inline constexpr int IsNullable = 0x20;
inline constexpr int MayBeNull = 0x40;
inline constexpr int Long = 0x80;
inline constexpr int KeyColumn = 0x8000;
} // namespace FieldAttr

struct FieldDef;
using FieldDefs = QVector<FieldDef>;

struct FieldDef {
    QString name;
    FieldType type = FieldType::Variant;
    int definedSize = 0;
    int attributes = FieldAttr::Updatable | FieldAttr::IsNullable | FieldAttr::MayBeNull;
    int precision = 0;
    int numericScale = 0;
    // For a Chapter field: the fields of the nested recordset each row holds.
    std::shared_ptr<const FieldDefs> children;

    static FieldDef Make(const QString& name, FieldType type, int definedSize = 0) {
        FieldDef f;
        f.name = name;
        f.type = type;
        f.definedSize = definedSize;
        return f;
    }
    static FieldDef Chapter(const QString& name, const FieldDefs& childFields) {
        FieldDef f = Make(name, FieldType::Chapter);
        f.children = std::make_shared<const FieldDefs>(childFields);
        return f;
    }
};

// Whether values of the type are texts, whole numbers, fractional numbers or dates.
bool IsTextType(FieldType t);
bool IsIntegerType(FieldType t);
bool IsFractionalType(FieldType t);
bool IsDateType(FieldType t);

} // namespace orvo
