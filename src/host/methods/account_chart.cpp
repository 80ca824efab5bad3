#include "host/methods/account_chart.h"

#include "host/objects/object_kind_registry.h"
#include "host/storage/accounts_schema.h"
#include "host/storage/database.h"

#include <memory>

namespace orvo::host {

namespace {

const char* const kColumns =
    "ID, ParentID, OwnCode, Account, Name, Type, GroupFlag, NewID, BRAPropertyID";

ObjectKind makeAccountKind() {
    const Migration m = AccountsMigration();
    ObjectKind k;
    k.Code = kinds::Account;
    k.Title = QStringLiteral("Sąskaitų planas");
    k.Root.Table = FindTable(m, QStringLiteral("Accounts"));
    k.Root.Extra = {FieldDef::Make(QStringLiteral("Preview"), FieldType::VarWChar)};
    for (const char* name : {"BRRequiredAddr", "EnabledAddressee"}) {
        auto child = std::make_shared<ObjectTable>();
        child->Table = FindTable(m, QString::fromLatin1(name));
        child->Hidden = {QStringLiteral("AccountID")};
        child->OrderBy = QStringLiteral("Sign DESC, FOID, ID");
        k.Root.Children.append(
            {QString::fromLatin1(name), child, QStringLiteral("AccountID"), false});
    }
    k.ListPreviewSql = QStringLiteral("Account || ' ' || Name");
    k.ListOrderBy = QStringLiteral("Account");
    k.Preview = [](const Recordset& rs) {
        return QString(rs.Field(QStringLiteral("Account")).toString() + QLatin1Char(' ') +
                       rs.Field(QStringLiteral("Name")).toString())
            .trimmed();
    };
    return k;
}

} // namespace

const ObjectKind& AccountKind() {
    static const ObjectKind kind = makeAccountKind();
    return kind;
}

FieldDefs AccountRowFields() {
    return {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("ID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("ParentID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("OwnCode"), FieldType::VarWChar, 200),
            FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255),
            FieldDef::Make(QStringLiteral("Type"), FieldType::VarWChar, 2),
            FieldDef::Make(QStringLiteral("GroupFlag"), FieldType::SmallInt),
            FieldDef::Make(QStringLiteral("NewID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("BRAPropertyID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("Preview"), FieldType::VarWChar)};
}

qint64 RecordId(const Value& v) {
    return v.isNull() ? 0 : static_cast<qint64>(v.toDouble());
}

bool IsAccountNumber(const QString& account) {
    if (account.isEmpty())
        return false;
    for (const QChar c : account)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    return true;
}

RecordsetPtr ReadAccountRows(Database& db, const QString& where, const ValueArray& params,
                             QString* error) {
    QString sql = QStringLiteral("SELECT %1 FROM Accounts").arg(QLatin1String(kColumns));
    if (!where.isEmpty())
        sql += QStringLiteral(" WHERE ") + where;
    sql += QStringLiteral(" ORDER BY Account");
    const QueryResult q = db.Query(sql, params);
    if (!q.ok()) {
        if (error)
            *error = q.Text;
        return nullptr;
    }
    auto rs = Recordset::Create(AccountRowFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        const qint64 id = RecordId(q.At(i, 0));
        rs->AddNew();
        rs->SetField(QStringLiteral("OIDR"), QString(kinds::Account + QString::number(id)));
        rs->SetField(QStringLiteral("ID"), Value(double(id)));
        if (!q.At(i, 1).isNull())
            rs->SetField(QStringLiteral("ParentID"), Value(double(RecordId(q.At(i, 1)))));
        rs->SetField(QStringLiteral("OwnCode"), q.At(i, 2).toString());
        rs->SetField(QStringLiteral("Account"), q.At(i, 3).toString());
        rs->SetField(QStringLiteral("Name"), q.At(i, 4).toString());
        rs->SetField(QStringLiteral("Type"), q.At(i, 5).toString());
        rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(q.At(i, 6).toInt32() != 0 ? 1 : 0)));
        if (!q.At(i, 7).isNull())
            rs->SetField(QStringLiteral("NewID"), Value(double(RecordId(q.At(i, 7)))));
        rs->SetField(QStringLiteral("BRAPropertyID"), Value(double(RecordId(q.At(i, 8)))));
        rs->SetField(QStringLiteral("Preview"),
                     QString(q.At(i, 3).toString() + QLatin1Char(' ') + q.At(i, 4).toString()));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

} // namespace orvo::host
