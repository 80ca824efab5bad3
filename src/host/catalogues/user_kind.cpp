#include "host/catalogues/user_kind.h"

#include "core/recordset.h"
#include "host/objects/object_kind_registry.h"
#include "host/storage/catalogue_schema.h"
#include "host/storage/database.h"
#include "host/storage/migration.h"

namespace orvo::host {

namespace {

const char* const kFlags[] = {"ReadFlag", "DeleteFlag", "EditFlag", "CreateFlag", "FifthFlag"};

bool flagAt(const Recordset& rights, int row, const char* name) {
    const Value v = rights.ValueAt(row, rights.FieldIndex(QString::fromLatin1(name)));
    return !v.isNull() && v.toBool();
}

// Writes the rights rows that changed; unchanged rows are as the book holds them.
ResultRecord writeRights(Database& db, Recordset& rs, int row, qint64 userId) {
    const RecordsetPtr rights =
        rs.ValueAt(row, rs.FieldIndex(QStringLiteral("Rights"))).toRecordset();
    if (!rights)
        return ResultRecord::Success();
    const int keyField = rights->FieldIndex(QStringLiteral("RightKey"));
    for (int i = 0; i < rights->RowCountAll(); ++i) {
        const RowStatus status = rights->StatusAt(i);
        if (status == RowStatus::Unchanged)
            continue;
        if (status == RowStatus::Deleted) {
            const Value key = rights->OriginalValueAt(i, keyField).isNull()
                                  ? rights->ValueAt(i, keyField)
                                  : rights->OriginalValueAt(i, keyField);
            const ExecResult r =
                db.Execute(QStringLiteral("DELETE FROM Rights WHERE UserID = ? AND RightKey = ?"),
                           {Value(double(userId)), key});
            if (!r.ok())
                return ResultRecord::Failure(r.Code, r.Text);
            continue;
        }
        const QString key = rights->ValueAt(i, keyField).toString().trimmed();
        if (key.isEmpty())
            continue;
        ValueArray params{Value(double(userId)), Value(key)};
        for (const char* flag : kFlags)
            params.append(Value(flagAt(*rights, i, flag) ? 1 : 0));
        const ExecResult r = db.Execute(
            QStringLiteral("INSERT INTO Rights (UserID, RightKey, ReadFlag, DeleteFlag, EditFlag, "
                           "CreateFlag, FifthFlag) VALUES (?, ?, ?, ?, ?, ?, ?) "
                           "ON CONFLICT (UserID, RightKey) DO UPDATE SET "
                           "ReadFlag = excluded.ReadFlag, DeleteFlag = excluded.DeleteFlag, "
                           "EditFlag = excluded.EditFlag, CreateFlag = excluded.CreateFlag, "
                           "FifthFlag = excluded.FifthFlag"),
            params);
        if (!r.ok())
            return ResultRecord::Failure(r.Code, r.Text);
    }
    return ResultRecord::Success();
}

} // namespace

FieldDefs UserRightFields() {
    FieldDefs fields{FieldDef::Make(QStringLiteral("RightKey"), FieldType::VarWChar, 60),
                     FieldDef::Make(QStringLiteral("ParentKey"), FieldType::VarWChar, 60),
                     FieldDef::Make(QStringLiteral("Title"), FieldType::VarWChar, 200),
                     FieldDef::Make(QStringLiteral("Kind"), FieldType::Integer)};
    for (const char* flag : kFlags)
        fields.append(FieldDef::Make(QString::fromLatin1(flag), FieldType::Boolean));
    return fields;
}

ObjectKind UserKind() {
    const Migration m = CatalogueMigration();
    auto rights = std::make_shared<ObjectTable>();
    rights->Table = FindTable(m, QStringLiteral("Rights"));
    rights->Shape = UserRightFields();
    ObjectKind k;
    k.Code = kinds::User;
    k.Title = QStringLiteral("Naudotojai");
    k.Root.Table = FindTable(m, QStringLiteral("Users"));
    k.Root.Children = {{QStringLiteral("Rights"), rights, QStringLiteral("UserID"), true}};
    k.ListPreviewSql = QStringLiteral("Code || ' ' || COALESCE(Name, '')");
    k.ListOrderBy = QStringLiteral("Code, ID");
    k.Preview = [](const Recordset& rs) {
        return QString(rs.Field(QStringLiteral("Code")).toString() + QLatin1Char(' ') +
                       rs.Field(QStringLiteral("Name")).toString())
            .trimmed();
    };
    k.Hooks.AfterWrite = [](Database& db, Recordset& rs, int row, qint64 storedId, bool,
                            const ObjectSaveActor&) { return writeRights(db, rs, row, storedId); };
    return k;
}

} // namespace orvo::host
