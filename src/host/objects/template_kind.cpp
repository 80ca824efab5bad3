#include "host/objects/template_kind.h"

#include "core/null_readers.h"
#include "core/recordset.h"
#include "host/objects/object_kind_registry.h"
#include "host/storage/database.h"
#include "host/storage/groups_schema.h"

#include <QUuid>

namespace orvo::host {

namespace {

const QString kAcc = QStringLiteral("BRTemplateAcc");
const QString kAddr = QStringLiteral("BRTemplateAddr");
const QString kParentColumn = QStringLiteral("BRTemplateID");

// GUIDs as the component writes them: upper-case hex in braces.
QString newGuid() {
    return QUuid::createUuid().toString(QUuid::WithBraces).toUpper();
}

ResultRecord refused(const QString& text) {
    return ResultRecord::Failure(777, text);
}

std::shared_ptr<ObjectTable> childTable(const TableDef& def) {
    auto t = std::make_shared<ObjectTable>();
    t->Table = def;
    t->Hidden = {kParentColumn};
    return t;
}

// Fills what a new row cannot do without: the template's GUID, and on each new entry
// its own GUID and the template's, so that addressee rows and applied entries can name
// them. Only new rows are touched, so that the value set is the value written.
void fillKeys(Recordset& rs, int row) {
    const int guidField = rs.FieldIndex(QStringLiteral("GUID"));
    QString guid = rs.ValueAt(row, guidField).toString();
    if (guid.trimmed().isEmpty() && rs.StatusAt(row) == RowStatus::New) {
        guid = newGuid();
        rs.SetValueAt(row, guidField, guid);
    }
    const RecordsetPtr acc = rs.ValueAt(row, rs.FieldIndex(kAcc)).toRecordset();
    if (!acc)
        return;
    const int accGuid = acc->FieldIndex(QStringLiteral("GUID"));
    const int accTemplate = acc->FieldIndex(QStringLiteral("BRTemplateGUID"));
    for (int i = 0; i < acc->RowCountAll(); ++i) {
        if (acc->StatusAt(i) != RowStatus::New)
            continue;
        if (acc->ValueAt(i, accGuid).toString().trimmed().isEmpty())
            acc->SetValueAt(i, accGuid, newGuid());
        if (acc->ValueAt(i, accTemplate).toString().trimmed().isEmpty() && !guid.isEmpty())
            acc->SetValueAt(i, accTemplate, guid);
    }
}

// An addressee demand names its side by 1 or -1 only.
ResultRecord checkAddressees(const Recordset& rs, int row) {
    const RecordsetPtr addr = rs.ValueAt(row, rs.FieldIndex(kAddr)).toRecordset();
    if (!addr)
        return ResultRecord::Success();
    const int sign = addr->FieldIndex(QStringLiteral("Sign"));
    const int foid = addr->FieldIndex(QStringLiteral("FOID"));
    for (int i = 0; i < addr->RowCountAll(); ++i) {
        if (addr->StatusAt(i) == RowStatus::Deleted)
            continue;
        const int s = addr->ValueAt(i, sign).isNull() ? 1 : addr->ValueAt(i, sign).toInt32();
        if (s != 1 && s != -1)
            return refused(QStringLiteral("Klaidinga adresato pusė: %1 (galima 1 arba -1)!")
                               .arg(QString::number(s)));
        if (addr->ValueAt(i, foid).toString().trimmed().isEmpty())
            return refused(QStringLiteral("Nenurodyta adresato rūšis!"));
    }
    return ResultRecord::Success();
}

QVector<qint64> childrenOf(Database& db, qint64 id, QString* error) {
    QVector<qint64> out;
    const QueryResult q =
        db.Query(QStringLiteral("SELECT ID FROM BRTemplates WHERE ParentID = ? ORDER BY "
                                "GroupFlag DESC, Name, ID"),
                 {Value(double(id))});
    if (!q.ok()) {
        *error = q.Text;
        return out;
    }
    for (int i = 0; i < q.RowCount(); ++i)
        out.append(NzId(q.At(i, 0)));
    return out;
}

// Renews the codes of every record below `id`, whose own code is `ownCode`.
ResultRecord renewBelow(Database& db, qint64 id, const QString& ownCode) {
    QString error;
    const QVector<qint64> children = childrenOf(db, id, &error);
    if (!error.isEmpty())
        return ResultRecord::Failure(1, error);
    for (qint64 child : children) {
        const QString childCode = TemplateOwnCode(ownCode, child);
        const ExecResult r = db.Execute(
            QStringLiteral("UPDATE BRTemplates SET OwnCode = ?, ParentCode = ? WHERE ID = ?"),
            {Value(childCode), Value(ownCode), Value(double(child))});
        if (!r.ok())
            return ResultRecord::Failure(r.Code, r.Text);
        const ResultRecord below = renewBelow(db, child, childCode);
        if (!below.ok())
            return below;
    }
    return ResultRecord::Success();
}

} // namespace

QString TemplateOwnCode(const QString& parentOwnCode, qint64 id) {
    return parentOwnCode + QString::number(id) + QLatin1Char('*');
}

QVector<qint64> TemplateSubtree(Database& db, qint64 id, QString* error) {
    QVector<qint64> out;
    // Depth first with an explicit stack: each group is followed by all it holds, and a
    // parent chain that loops (written past these rules) cannot hang the walk.
    QVector<qint64> stack{id};
    while (!stack.isEmpty()) {
        const qint64 next = stack.takeLast();
        if (out.contains(next))
            continue;
        out.append(next);
        const QVector<qint64> children = childrenOf(db, next, error);
        if (!error->isEmpty())
            return {};
        for (auto it = children.crbegin(); it != children.crend(); ++it)
            stack.append(*it);
    }
    return out;
}

ResultRecord RenewTemplateCodes(Database& db, qint64 id, QString* ownCode, QString* parentCode) {
    const QueryResult self =
        db.Query(QStringLiteral("SELECT ParentID, OwnCode FROM BRTemplates WHERE ID = ?"),
                 {Value(double(id))});
    if (!self.ok())
        return ResultRecord::Failure(self.Code, self.Text);
    if (self.RowCount() == 0)
        return refused(QStringLiteral("Šablonas %1 nerastas.").arg(id));
    const qint64 parentId = NzId(self.At(0, 0));
    const QString oldCode = self.At(0, 1).toString();
    QString parentOwn;
    if (parentId > 0) {
        if (parentId == id)
            return refused(QStringLiteral("Grupė negali būti pati sau aukštesnio lygio grupė!"));
        const QueryResult parent =
            db.Query(QStringLiteral("SELECT GroupFlag, OwnCode FROM BRTemplates WHERE ID = ?"),
                     {Value(double(parentId))});
        if (!parent.ok())
            return ResultRecord::Failure(parent.Code, parent.Text);
        if (parent.RowCount() == 0)
            return refused(QStringLiteral("Aukštesnio lygio šablonų grupė nebeegzistuoja!"));
        if (parent.At(0, 0).toInt32() == 0)
            return refused(QStringLiteral("Šablonas gali būti tik šablonų grupėje!"));
        parentOwn = parent.At(0, 1).toString();
        QString error;
        const QVector<qint64> below = TemplateSubtree(db, id, &error);
        if (!error.isEmpty())
            return ResultRecord::Failure(1, error);
        if (below.contains(parentId))
            return refused(QStringLiteral("Grupės negalima perkelti į jos pačios pogrupį!"));
    }
    const QString code = TemplateOwnCode(parentOwn, id);
    const ExecResult r = db.Execute(
        QStringLiteral("UPDATE BRTemplates SET OwnCode = ?, ParentCode = ? WHERE ID = ?"),
        {Value(code), Value(parentOwn), Value(double(id))});
    if (!r.ok())
        return ResultRecord::Failure(r.Code, r.Text);
    if (code != oldCode) {
        const ResultRecord below = renewBelow(db, id, code);
        if (!below.ok())
            return below;
    }
    if (ownCode)
        *ownCode = code;
    if (parentCode)
        *parentCode = parentOwn;
    return ResultRecord::Success();
}

ObjectKind TemplateKind() {
    const Migration m = GroupsMigration();
    auto acc = childTable(FindTable(m, kAcc));
    auto addr = childTable(FindTable(m, kAddr));

    ObjectKind k;
    k.Code = kinds::Template;
    k.Title = QStringLiteral("Finansinių operacijų šablonai");
    k.Root.Table = FindTable(m, QStringLiteral("BRTemplates"));
    // NewMode is the editor's note that a new record copies a stored set ("O0201600|12");
    // it is never stored.
    k.Root.Extra = {FieldDef::Make(QStringLiteral("NewMode"), FieldType::VarWChar, 100)};
    k.Root.Children = {{kAcc, acc, kParentColumn, false}, {kAddr, addr, kParentColumn, false}};
    k.LockColumn = QStringLiteral("LockGUID");
    k.ListPreviewSql = QStringLiteral("Name");
    k.ListOrderBy = QStringLiteral("GroupFlag DESC, Name, ID");
    k.Preview = [](const Recordset& rs) { return rs.Field(QStringLiteral("Name")).toString(); };
    k.Hooks.BeforeWrite = [](Database&, Recordset& rs, int row, qint64, const ObjectSaveActor&) {
        const ResultRecord checked = checkAddressees(rs, row);
        if (!checked.ok())
            return checked;
        fillKeys(rs, row);
        return ResultRecord::Success();
    };
    k.Hooks.AfterWrite = [](Database& db, Recordset& rs, int row, qint64 id, bool,
                            const ObjectSaveActor&) {
        QString own;
        QString parent;
        const ResultRecord r = RenewTemplateCodes(db, id, &own, &parent);
        if (!r.ok())
            return r;
        rs.SetValueAt(row, rs.FieldIndex(QStringLiteral("OwnCode")), own);
        rs.SetValueAt(row, rs.FieldIndex(QStringLiteral("ParentCode")), parent);
        return ResultRecord::Success();
    };
    return k;
}

} // namespace orvo::host
