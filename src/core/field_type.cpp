#include "core/field_type.h"

namespace orvo {

bool IsTextType(FieldType t) {
    switch (t) {
    case FieldType::BSTR:
    case FieldType::VarChar:
    case FieldType::LongVarChar:
    case FieldType::VarWChar:
    case FieldType::LongVarWChar:
        return true;
    default:
        return false;
    }
}

bool IsIntegerType(FieldType t) {
    switch (t) {
    case FieldType::SmallInt:
    case FieldType::Integer:
    case FieldType::TinyInt:
    case FieldType::BigInt:
        return true;
    default:
        return false;
    }
}

bool IsFractionalType(FieldType t) {
    switch (t) {
    case FieldType::Single:
    case FieldType::Double:
    case FieldType::Currency:
    case FieldType::Decimal:
    case FieldType::Numeric:
        return true;
    default:
        return false;
    }
}

bool IsDateType(FieldType t) {
    switch (t) {
    case FieldType::Date:
    case FieldType::DBDate:
    case FieldType::DBTime:
    case FieldType::DBTimeStamp:
        return true;
    default:
        return false;
    }
}

} // namespace orvo
