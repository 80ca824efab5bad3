#include "host/catalogues/catalogue_kinds.h"

#include "core/recordset.h"
#include "host/catalogues/catalogue_editor_hooks.h"
#include "host/catalogues/user_kind.h"
#include "host/storage/catalogue_schema.h"

namespace orvo::host {

namespace {

ObjectKind kindOf(const Migration& m, const QString& code, const QString& title,
                  const QString& table, const QString& previewSql, const QString& orderBy,
                  std::function<QString(const Recordset&)> preview) {
    ObjectKind k;
    k.Code = code;
    k.Title = title;
    k.Root.Table = FindTable(m, table);
    k.ListPreviewSql = previewSql;
    k.ListOrderBy = orderBy;
    k.Preview = std::move(preview);
    ApplyCatalogueEditorRules(k);
    return k;
}

QString field(const Recordset& rs, const char* name) {
    return rs.Field(QString::fromLatin1(name)).toString();
}

QString joined(const QString& a, const QString& b) {
    return QString(a + QLatin1Char(' ') + b).trimmed();
}

} // namespace

void AddCatalogueKinds(ObjectKindRegistry& registry) {
    const Migration m = CatalogueMigration();
    registry.Add(kindOf(m, kinds::Firm, QStringLiteral("Įmonės"), QStringLiteral("Firms"),
                        QStringLiteral("Name"), QStringLiteral("Name, ID"),
                        [](const Recordset& rs) { return field(rs, "Name"); }));
    registry.Add(kindOf(
        m, kinds::Person, QStringLiteral("Fiziniai asmenys"), QStringLiteral("Persons"),
        QStringLiteral("COALESCE(Name, '') || ' ' || COALESCE(LastName, '')"),
        QStringLiteral("LastName, Name, ID"),
        [](const Recordset& rs) { return joined(field(rs, "Name"), field(rs, "LastName")); }));
    registry.Add(kindOf(
        m, kinds::Employee, QStringLiteral("Darbuotojai"), QStringLiteral("Employees"),
        QStringLiteral("COALESCE(Name, '') || ' ' || COALESCE(LastName, '')"),
        QStringLiteral("LastName, Name, ID"),
        [](const Recordset& rs) { return joined(field(rs, "Name"), field(rs, "LastName")); }));
    registry.Add(kindOf(m, kinds::Bank, QStringLiteral("Bankai"), QStringLiteral("Banks"),
                        QStringLiteral("Name"), QStringLiteral("Name, ID"),
                        [](const Recordset& rs) { return field(rs, "Name"); }));
    registry.Add(kindOf(m, kinds::BankAccount, QStringLiteral("Banko sąskaitos"),
                        QStringLiteral("BankAccounts"), QStringLiteral("AccountNumber"),
                        QStringLiteral("AccountNumber, ID"),
                        [](const Recordset& rs) { return field(rs, "AccountNumber"); }));
    registry.Add(
        kindOf(m, kinds::Currency, QStringLiteral("Valiuta"), QStringLiteral("Currencies"),
               QStringLiteral("Code || ' ' || COALESCE(Name, '')"), QStringLiteral("Code"),
               [](const Recordset& rs) { return joined(field(rs, "Code"), field(rs, "Name")); }));
    ObjectKind users = UserKind();
    ApplyCatalogueEditorRules(users);
    registry.Add(users);
}

} // namespace orvo::host
