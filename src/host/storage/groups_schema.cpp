#include "host/storage/groups_schema.h"

namespace orvo::host {

namespace {

using T = ColumnType;

ColumnDef text(const char* name) {
    return Column(QString::fromLatin1(name), T::Text);
}

ColumnDef integer(const char* name, const char* defaultValue = "0") {
    return Column(QString::fromLatin1(name), T::Integer, true, QString::fromLatin1(defaultValue));
}

TableDef BROperGroups() {
    return {QStringLiteral("BROperGroups"),
            {IdColumn(), Column(QStringLiteral("ParentID"), T::Integer),
             FlagColumn(QStringLiteral("GroupFlag")),
             Column(QStringLiteral("Name"), T::Text, true, QStringLiteral("''")),
             Column(QStringLiteral("FormOID"), T::Text, true, QStringLiteral("'O0201500'")),
             text("Parameters"), integer("BRTemplateID"), integer("DefaultTemplateID"),
             FlagColumn(QStringLiteral("SerijaIndication")), text("Serija"), text("AccountCode"),
             Column(QStringLiteral("ANDateFrom"), T::Date), integer("ANMinimal", "1"),
             text("ANPrefix"), integer("ANGroupBy"), integer("ANCycle", "3"), text("ANTemplate"),
             text("ANMask"), text("LockGUID")},
            {},
            {}};
}

TableDef AccountSettings() {
    return {QStringLiteral("AccountSettings"),
            {IdColumn(), Column(QStringLiteral("AccountCode"), T::Text, true),
             Column(QStringLiteral("Code"), T::Text, true), text("CodeName"), text("Account")},
            {},
            {}};
}

TableDef AutoNumberCounters() {
    ColumnDef scope = Column(QStringLiteral("Scope"), T::Text, true);
    scope.Unique = true;
    return {
        QStringLiteral("AutoNumberCounters"), {IdColumn(), scope, integer("LastValue")}, {}, {}};
}

TableDef BRTemplates() {
    return {QStringLiteral("BRTemplates"),
            {IdColumn(), Column(QStringLiteral("ParentID"), T::Integer),
             FlagColumn(QStringLiteral("GroupFlag")),
             Column(QStringLiteral("Name"), T::Text, true, QStringLiteral("''")), text("Comment"),
             text("GUID"), text("OwnCode"), text("ParentCode"), text("LockGUID")},
            {},
            {}};
}

TableDef BRTemplateAcc() {
    return {
        QStringLiteral("BRTemplateAcc"),
        {IdColumn(),
         ForeignKey(QStringLiteral("BRTemplateID"), QStringLiteral("BRTemplates(ID)"), true, true),
         text("GUID"), text("BRTemplateGUID"), text("AccountD"), text("AccountC"),
         Column(QStringLiteral("Factor"), T::Double, true, QStringLiteral("1"))},
        {},
        {}};
}

TableDef BRTemplateAddr() {
    return {
        QStringLiteral("BRTemplateAddr"),
        {IdColumn(),
         ForeignKey(QStringLiteral("BRTemplateID"), QStringLiteral("BRTemplates(ID)"), true, true),
         text("BRTemplateAccGUID"), Column(QStringLiteral("FOID"), T::Text, true),
         integer("Sign", "1"), text("FOIDR")},
        {},
        {}};
}

IndexDef index(const char* name, const char* table, QStringList columns) {
    return {QString::fromLatin1(name), QString::fromLatin1(table), std::move(columns), false, {}};
}

} // namespace

Migration GroupsMigration() {
    Migration m;
    m.Version = kGroupsMigrationVersion;
    m.Title = QStringLiteral("Operacijų grupės ir šablonai");
    m.Tables = {BROperGroups(), AccountSettings(), AutoNumberCounters(),
                BRTemplates(),  BRTemplateAcc(),   BRTemplateAddr()};
    m.Indexes = {
        index("BROperGroupsParent", "BROperGroups", {QStringLiteral("ParentID")}),
        index("AccountSettingsCode", "AccountSettings",
              {QStringLiteral("AccountCode"), QStringLiteral("Code")}),
        index("BRTemplatesParent", "BRTemplates", {QStringLiteral("ParentID")}),
        index("BRTemplatesGUID", "BRTemplates", {QStringLiteral("GUID")}),
        index("BRTemplateAccTemplate", "BRTemplateAcc", {QStringLiteral("BRTemplateID")}),
        index("BRTemplateAddrTemplate", "BRTemplateAddr", {QStringLiteral("BRTemplateID")}),
    };
    return m;
}

} // namespace orvo::host
