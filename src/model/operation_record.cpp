#include "model/operation_record.h"

namespace orvo::OperationRecord {

namespace {

FieldDef text(const char* name, int size) {
    return FieldDef::Make(QString::fromLatin1(name), FieldType::VarWChar, size);
}

FieldDef typed(const char* name, FieldType type) {
    return FieldDef::Make(QString::fromLatin1(name), type);
}

} // namespace

FieldDefs BRCurrencyFields() {
    return {
        text("BRGUID", GuidSize),
        typed("Sign", FieldType::SmallInt),
        typed("RateCurr", FieldType::Double),
        typed("SumCurr", FieldType::Double),
        text("FCurrencyCode", CurrencyCodeSize),
        typed("ID", FieldType::Integer),
    };
}

FieldDefs BRPropertiesFields() {
    return {
        text("BRGUID", GuidSize),        typed("Sign", FieldType::SmallInt),
        text("FOIDR", ReferenceSize),    text("ShowString", ShowStringSize),
        typed("ID", FieldType::Integer),
    };
}

FieldDefs RequiredAddrFields() {
    return {
        typed("Sign", FieldType::SmallInt),
        text("FOID", KindSize),
        text("BRTemplateAccGUID", GuidSize),
    };
}

FieldDefs EntryFields() {
    return {
        typed("ID", FieldType::Integer),
        text("GUID", GuidSize),
        typed("DateD", FieldType::Date),
        typed("SumA", FieldType::Double),
        text("AccountD", AccountSize),
        text("AccountC", AccountSize),
        text("Info", InfoSize),
        typed("Tag", FieldType::Variant),
        typed("BRTemplateAccID", FieldType::Integer),
        typed("TradeOperationType", FieldType::SmallInt),
        typed("VATFlag", FieldType::Boolean),
        typed("VATIndication", FieldType::SmallInt),
        typed("VATTariff", FieldType::Double),
        typed("RestoringSign", FieldType::SmallInt),
        typed("CurrencyRateD", FieldType::Double),
        typed("CurrencyRateC", FieldType::Double),
        text("FGUID", GuidSize),
        FieldDef::Chapter(QStringLiteral("BRCurrency"), BRCurrencyFields()),
        FieldDef::Chapter(QStringLiteral("BRProperties"), BRPropertiesFields()),
        FieldDef::Chapter(QStringLiteral("RequiredAddr"), RequiredAddrFields()),
    };
}

FieldDefs OperationFields() {
    return {
        text("OIDR", ReferenceSize),
        text("FOIDR", ReferenceSize),
        typed("BROperGroupID", FieldType::Integer),
        typed("DateD", FieldType::Date),
        text("Comment", CommentSize),
        text("Serija", SerijaSize),
        text("Number", NumberSize),
        typed("VATRegisterIndication", FieldType::SmallInt),
        text("LockGUID", GuidSize),
        text("Parameters", ParametersSize),
        typed("AutoNumber", FieldType::Integer),
        text("OType", ReferenceSize),
        text("CreatedByUserOIDR", ReferenceSize),
        text("CreatedByUserName", UserNameSize),
        typed("CreationDate", FieldType::Date),
        text("ChangedByUserOIDR", ReferenceSize),
        text("ChangedByUserName", UserNameSize),
        typed("CorrectionDate", FieldType::Date),
        FieldDef::Chapter(QStringLiteral("BR"), EntryFields()),
    };
}

} // namespace orvo::OperationRecord
