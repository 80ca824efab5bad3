#include "host/objects/group_kind.h"

#include "core/recordset.h"
#include "host/objects/object_kind_registry.h"
#include "host/storage/database.h"
#include "host/storage/groups_schema.h"

namespace orvo::host {

namespace {

// How many rows of `table` point at the group through `column`; -1 when reading fails.
int countOf(Database& db, const QString& table, const QString& column, qint64 id, QString* error) {
    const QueryResult q =
        db.Query(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2 = ?").arg(table, column),
                 {Value(double(id))});
    if (!q.ok()) {
        *error = q.Text;
        return -1;
    }
    return q.Scalar().toInt32();
}

// Whether document parameters name a template: pairs of a template type and its
// template, "#"-joined, with the document type after "|".
bool namesTemplate(const QString& parameters) {
    const QStringList values = parameters.section(QLatin1Char('|'), 0, 0).split(QLatin1Char('#'));
    for (int i = 1; i < values.size(); i += 2)
        if (values.at(i).trimmed().toLongLong() > 0)
            return true;
    return false;
}

} // namespace

ObjectKind GroupKind() {
    ObjectKind k;
    k.Code = kinds::OperationGroup;
    k.Title = QStringLiteral("Finansinių operacijų apskaitos grupė");
    k.Root.Table = FindTable(GroupsMigration(), QStringLiteral("BROperGroups"));
    k.Root.Extra = {FieldDef::Make(QStringLiteral("BROperGroupID"), FieldType::Integer)};
    k.ListPreviewSql = QStringLiteral("Name");
    k.ListOrderBy = QStringLiteral("Name, ID");
    k.LockColumn = QStringLiteral("LockGUID");
    k.Preview = [](const Recordset& rs) { return rs.Field(QStringLiteral("Name")).toString(); };
    k.Hooks.BeforeWrite = [](Database&, Recordset& rs, int row, qint64 id, const ObjectSaveActor&) {
        const int nameField = rs.FieldIndex(QStringLiteral("Name"));
        if (rs.ValueAt(row, nameField).toString().trimmed().isEmpty())
            return ResultRecord::Failure(777, QStringLiteral("Nenurodytas grupės pavadinimas!"));
        const QString form = rs.ValueAt(row, rs.FieldIndex(QStringLiteral("FormOID"))).toString();
        if (form.trimmed() == QLatin1String("O1000100") &&
            !namesTemplate(rs.ValueAt(row, rs.FieldIndex(QStringLiteral("Parameters"))).toString()))
            return ResultRecord::Failure(777, QStringLiteral("Nenurodyti šablonai !"));
        const Value parent = rs.ValueAt(row, rs.FieldIndex(QStringLiteral("ParentID")));
        if (id > 0 && !parent.isNull() && static_cast<qint64>(parent.toDouble()) == id)
            return ResultRecord::Failure(
                777, QStringLiteral("Grupė negali būti pati sau aukštesnio lygio grupė!"));
        return ResultRecord::Success();
    };
    // The row is already gone inside the transaction; what still points at it decides
    // whether the deletion may commit.
    k.Hooks.AfterDelete = [](Database& db, qint64 id, const ObjectSaveActor&) {
        QString error;
        const int operations =
            countOf(db, QStringLiteral("BROpers"), QStringLiteral("BROperGroupID"), id, &error);
        if (operations < 0)
            return ResultRecord::Failure(1, error);
        if (operations > 0)
            return ResultRecord::Failure(
                777, QStringLiteral("Grupės panaikinti negalima: joje yra operacijų (%1). "
                                    "Pirmiau jas perkelkite į kitą grupę arba panaikinkite.")
                         .arg(operations));
        const int groups =
            countOf(db, QStringLiteral("BROperGroups"), QStringLiteral("ParentID"), id, &error);
        if (groups < 0)
            return ResultRecord::Failure(1, error);
        if (groups > 0)
            return ResultRecord::Failure(
                777, QStringLiteral("Grupės panaikinti negalima: joje yra kitų grupių (%1). "
                                    "Pirmiau jas perkelkite arba panaikinkite.")
                         .arg(groups));
        return ResultRecord::Success();
    };
    return k;
}

} // namespace orvo::host
