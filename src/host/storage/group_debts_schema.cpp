#include "host/storage/group_debts_schema.h"

namespace orvo::host {

namespace {

using T = ColumnType;

TableDef BROperGroupDebts() {
    return {QStringLiteral("BROperGroupDebts"),
            {IdColumn(), Column(QStringLiteral("BROperGroupID"), T::Integer, true),
             Column(QStringLiteral("BRID"), T::Integer, true),
             Column(QStringLiteral("BROperID"), T::Integer, true),
             Column(QStringLiteral("DateAt"), T::Date, true),
             Column(QStringLiteral("DateD"), T::Date), Column(QStringLiteral("Account"), T::Text),
             Column(QStringLiteral("Sign"), T::Integer), Column(QStringLiteral("FOIDR"), T::Text),
             Column(QStringLiteral("CurrencyCode"), T::Text),
             Column(QStringLiteral("RestA"), T::Money, true, QStringLiteral("0")),
             Column(QStringLiteral("RestCurr"), T::Money, true, QStringLiteral("0"))},
            {},
            {}};
}

TableDef DocumentTypes() {
    ColumnDef code = Column(QStringLiteral("Code"), T::Text, true);
    code.Unique = true;
    return {QStringLiteral("DocumentTypes"),
            {IdColumn(), code, Column(QStringLiteral("Name"), T::Text, true, QStringLiteral("''"))},
            {},
            {}};
}

TableDef TemplateTypes() {
    return {QStringLiteral("TemplateTypes"),
            {IdColumn(), Column(QStringLiteral("Name"), T::Text, true, QStringLiteral("''")),
             Column(QStringLiteral("DocumentTypeCodes"), T::Text, true, QStringLiteral("''"))},
            {},
            {}};
}

Statement documentType(const char* code, const char* name) {
    return {QStringLiteral("INSERT INTO DocumentTypes (Code, Name) VALUES (?, ?)"),
            {Value(QString::fromUtf8(code)), Value(QString::fromUtf8(name))}};
}

Statement templateType(const char* name, const char* codes) {
    return {QStringLiteral("INSERT INTO TemplateTypes (Name, DocumentTypeCodes) VALUES (?, ?)"),
            {Value(QString::fromUtf8(name)), Value(QString::fromUtf8(codes))}};
}

} // namespace

Migration GroupDebtsMigration() {
    Migration m;
    m.Version = kGroupDebtsMigrationVersion;
    m.Title = QStringLiteral("Grupių skolos ir dokumentų tipai");
    m.Tables = {BROperGroupDebts(), DocumentTypes(), TemplateTypes()};
    m.Indexes = {{QStringLiteral("BROperGroupDebtsGroup"),
                  QStringLiteral("BROperGroupDebts"),
                  {QStringLiteral("BROperGroupID")},
                  false,
                  {}}};
    m.Data = {
        documentType("SALE_INVOICE", "Pardavimo sąskaita faktūra"),
        documentType("PURCHASE_INVOICE", "Pirkimo sąskaita faktūra"),
        templateType("Pardavimo kontavimas", "SALE_INVOICE;RETURN_FROM_BUYER"),
        templateType("PVM kontavimas", "SALE_INVOICE;PURCHASE_INVOICE;RETURN_FROM_BUYER"),
        templateType("Pirkimo kontavimas", "PURCHASE_INVOICE"),
    };
    return m;
}

} // namespace orvo::host
