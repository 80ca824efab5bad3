#include "host/storage/operations_schema.h"

namespace orvo::host {

namespace {

using T = ColumnType;

ColumnDef text(const char* name) {
    return Column(QString::fromLatin1(name), T::Text);
}

ColumnDef typed(const char* name, ColumnType type) {
    return Column(QString::fromLatin1(name), type);
}

TableDef BROpers() {
    return {QStringLiteral("BROpers"),
            {IdColumn(),
             Column(QStringLiteral("OType"), T::Text, true, QStringLiteral("'O0201500'")),
             text("FOIDR"), typed("BROperGroupID", T::Integer), typed("DateD", T::Date),
             text("Comment"), text("Serija"), text("Number"),
             typed("VATRegisterIndication", T::Integer), text("LockGUID"), text("Parameters"),
             Column(QStringLiteral("AutoNumber"), T::Integer, true, QStringLiteral("0")),
             text("CreatedByUserOIDR"), text("CreatedByUserName"),
             typed("CreationDate", T::DateTime), text("ChangedByUserOIDR"),
             text("ChangedByUserName"), typed("CorrectionDate", T::DateTime)},
            {},
            {}};
}

TableDef BR() {
    return {QStringLiteral("BR"),
            {IdColumn(),
             ForeignKey(QStringLiteral("BROperID"), QStringLiteral("BROpers(ID)"), true, true),
             text("GUID"), typed("DateD", T::Date),
             Column(QStringLiteral("SumA"), T::Money, true, QStringLiteral("0")), text("AccountD"),
             text("AccountC"), text("Info"), typed("BRTemplateAccID", T::Integer),
             typed("TradeOperationType", T::Integer), FlagColumn(QStringLiteral("VATFlag")),
             typed("VATIndication", T::Integer), typed("VATTariff", T::Double),
             typed("RestoringSign", T::Integer), typed("CurrencyRateD", T::Double),
             typed("CurrencyRateC", T::Double), text("FGUID")},
            {},
            {}};
}

TableDef BRCurrency() {
    return {QStringLiteral("BRCurrency"),
            {IdColumn(), ForeignKey(QStringLiteral("BRID"), QStringLiteral("BR(ID)"), true, true),
             text("BRGUID"), Column(QStringLiteral("Sign"), T::Integer, true, QStringLiteral("1")),
             typed("RateCurr", T::Double),
             Column(QStringLiteral("SumCurr"), T::Money, true, QStringLiteral("0")),
             text("FCurrencyCode")},
            {},
            {}};
}

TableDef BRProperties() {
    return {QStringLiteral("BRProperties"),
            {IdColumn(), ForeignKey(QStringLiteral("BRID"), QStringLiteral("BR(ID)"), true, true),
             text("BRGUID"), Column(QStringLiteral("Sign"), T::Integer, true, QStringLiteral("1")),
             text("FOIDR"), text("ShowString")},
            {},
            {}};
}

TableDef BROperLog() {
    // No foreign key: the log of a deleted operation stays readable.
    return {QStringLiteral("BROperLog"),
            {IdColumn(), Column(QStringLiteral("BROperID"), T::Integer, true), text("UserOIDR"),
             text("UserName"), Column(QStringLiteral("ChangeDate"), T::DateTime, true),
             text("Action")},
            {},
            {}};
}

IndexDef index(const char* name, const char* table, QStringList columns) {
    return {QString::fromLatin1(name), QString::fromLatin1(table), std::move(columns), false, {}};
}

} // namespace

Migration OperationsMigration() {
    Migration m;
    m.Version = kOperationsMigrationVersion;
    m.Title = QStringLiteral("Finansinės operacijos");
    m.Tables = {BROpers(), BR(), BRCurrency(), BRProperties(), BROperLog()};
    m.Indexes = {
        index("BROpersGroupDate", "BROpers",
              {QStringLiteral("BROperGroupID"), QStringLiteral("DateD"), QStringLiteral("ID")}),
        index("BROpersDate", "BROpers", {QStringLiteral("DateD"), QStringLiteral("ID")}),
        index("BROpersFOIDR", "BROpers", {QStringLiteral("FOIDR")}),
        index("BROperation", "BR", {QStringLiteral("BROperID")}),
        index("BRDebitDate", "BR", {QStringLiteral("AccountD"), QStringLiteral("DateD")}),
        index("BRCreditDate", "BR", {QStringLiteral("AccountC"), QStringLiteral("DateD")}),
        index("BRGUIDs", "BR", {QStringLiteral("GUID")}),
        index("BRCurrencyEntry", "BRCurrency", {QStringLiteral("BRID")}),
        index("BRPropertiesEntry", "BRProperties", {QStringLiteral("BRID")}),
        index("BRPropertiesFOIDR", "BRProperties", {QStringLiteral("FOIDR")}),
        index("BROperLogOperation", "BROperLog",
              {QStringLiteral("BROperID"), QStringLiteral("ChangeDate")}),
    };
    return m;
}

} // namespace orvo::host
