#include "host/methods/account_record_methods.h"

#include "host/methods/account_chart.h"

#include "host/methods/account_entries_hook.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/objects/object_store.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {

BOResult refused(const QString& text) {
    return BOResult::Failure(codes::Refused, text);
}

BOResult storageFailed(const QString& text) {
    return BOResult::Failure(bo_codes::MethodFailed, text);
}

// The record number in "O0200401<ID>" or in a bare number; 0 when it is neither.
qint64 idFromReference(const QString& text) {
    const QString t = text.trimmed();
    bool ok = false;
    qint64 id = 0;
    if (t.startsWith(kinds::Account))
        id = t.mid(8).toLongLong(&ok);
    else if (!t.isEmpty() && t.at(0).isDigit())
        id = t.toLongLong(&ok);
    return ok && id > 0 ? id : 0;
}

struct StoredAccount {
    bool found = false;
    qint64 parentId = 0;
    QString ownCode;
    QString account;
    QString name;
    QString type;
    int groupFlag = 0;
    qint64 role = 0;
};

bool readStored(Database& db, qint64 id, StoredAccount* out, QString* error) {
    const QueryResult q = db.Query(
        QStringLiteral("SELECT ParentID, OwnCode, Account, Name, Type, GroupFlag, BRAPropertyID "
                       "FROM Accounts WHERE ID = ?"),
        {Value(double(id))});
    if (!q.ok()) {
        *error = q.Text;
        return false;
    }
    out->found = q.RowCount() > 0;
    if (out->found) {
        out->parentId = RecordId(q.At(0, 0));
        out->ownCode = q.At(0, 1).toString();
        out->account = q.At(0, 2).toString();
        out->name = q.At(0, 3).toString();
        out->type = q.At(0, 4).toString();
        out->groupFlag = q.At(0, 5).toInt32();
        out->role = RecordId(q.At(0, 6));
    }
    return true;
}

// Checks the rows of a nested addressee recordset: a side of 1, -1 or 0 and a kind
// that is an object code.
QString checkAddresseeRows(const Recordset* rs) {
    if (!rs)
        return {};
    const int sign = rs->FieldIndex(QStringLiteral("Sign"));
    const int foid = rs->FieldIndex(QStringLiteral("FOID"));
    for (int i = 0; i < rs->RowCountAll(); ++i) {
        if (rs->StatusAt(i) == RowStatus::Deleted)
            continue;
        const qint32 s = rs->ValueAt(i, sign).toInt32();
        const QString kind = rs->ValueAt(i, foid).toString().trimmed();
        if (s != 1 && s != -1 && s != 0)
            return QStringLiteral("Netinkama adresato pusė %1: galima 1 (debetas), -1 (kreditas) "
                                  "arba 0 (abi pusės).")
                .arg(s);
        if (kind.size() != 8 || !kind.startsWith(QLatin1Char('O')))
            return QStringLiteral("Netinkama adresato rūšis „%1“.").arg(kind);
    }
    return {};
}

// Renews OwnCode of every record below `id` (whose own OwnCode is `ownCode`) after the
// record moved.
bool renewOwnCodes(Database& db, qint64 id, const QString& ownCode, QString* error) {
    const QueryResult q =
        db.Query(QStringLiteral("SELECT ID FROM Accounts WHERE ParentID = ?"), {Value(double(id))});
    if (!q.ok()) {
        *error = q.Text;
        return false;
    }
    for (int i = 0; i < q.RowCount(); ++i) {
        const qint64 child = RecordId(q.At(i, 0));
        const QString childCode = ownCode + QString::number(child) + QLatin1Char('*');
        const ExecResult r =
            db.Execute(QStringLiteral("UPDATE Accounts SET OwnCode = ? WHERE ID = ?"),
                       {Value(childCode), Value(double(child))});
        if (!r.ok()) {
            *error = r.Text;
            return false;
        }
        if (!renewOwnCodes(db, child, childCode, error))
            return false;
    }
    return true;
}

qint64 entriesOf(Database& db, const QString& account, QString* error) {
    return CountAccountEntries(db, account, error);
}

BOResult saveChecked(Database& db, qint64 id, const RecordsetPtr& rs) {
    rs->MoveFirst();
    const QString account = rs->Field(QStringLiteral("Account")).toString().trimmed();
    const QString name = rs->Field(QStringLiteral("Name")).toString().trimmed();
    const QString type = rs->Field(QStringLiteral("Type")).toString().trimmed().toUpper();
    if (account.isEmpty() || account == QLatin1String("0") || account == QLatin1String("00"))
        return refused(QStringLiteral("Nenurodytas sąskaitos numeris"));
    if (!IsAccountNumber(account))
        return refused(
            QStringLiteral("Sąskaitos numerį „%1“ gali sudaryti tik skaitmenys.").arg(account));
    if (name.isEmpty())
        return refused(QStringLiteral("Nenurodytas sąskaitos pavadinimas"));
    if (type.isEmpty())
        return refused(QStringLiteral("Nenurodytas sąskaitos tipas"));
    if (type != QLatin1String("D") && type != QLatin1String("K") && type != QLatin1String("DK"))
        return refused(
            QStringLiteral("Sąskaitos tipas gali būti tik D, K arba DK, o ne „%1“.").arg(type));
    for (const char* child : {"BRRequiredAddr", "EnabledAddressee"}) {
        const QString bad =
            checkAddresseeRows(rs->Field(QString::fromLatin1(child)).toRecordset().get());
        if (!bad.isEmpty())
            return refused(bad);
    }

    QString error;
    StoredAccount old;
    if (id > 0) {
        if (!readStored(db, id, &old, &error))
            return storageFailed(error);
        if (!old.found)
            return BOResult::Failure(account_codes::RecordGone,
                                     QStringLiteral("Redaguojama sąskaita nebeegzistuoja!"));
    }
    const qint64 parentId = RecordId(rs->Field(QStringLiteral("ParentID")));
    StoredAccount parent;
    if (parentId > 0) {
        if (!readStored(db, parentId, &parent, &error))
            return storageFailed(error);
        if (!parent.found)
            return BOResult::Failure(account_codes::ParentGone,
                                     QStringLiteral("Aukštesnio lygio sąskaita nebeegzistuoja!"));
    }
    const qint64 role = RecordId(rs->Field(QStringLiteral("BRAPropertyID")));
    if (role > 0) {
        const QueryResult q = db.Query(
            QStringLiteral("SELECT COUNT(*) FROM BRASettings WHERE ID = ?"), {Value(double(role))});
        if (!q.ok())
            return storageFailed(q.Text);
        if (q.Scalar().toInt32() == 0)
            return BOResult::Failure(account_codes::RoleGone,
                                     QStringLiteral("BRAProperty nebeegzistuoja!"));
    }
    // A number that only repeats the parent's is no number of its own yet.
    if (parentId > 0 && account == parent.account)
        return refused(QStringLiteral("Nenurodytas sąskaitos numeris"));
    if (parentId > 0 &&
        (!account.startsWith(parent.account) || account.size() <= parent.account.size()))
        return refused(
            QStringLiteral("Sąskaitos numeris %1 turi prasidėti aukštesnio lygio sąskaitos "
                           "numeriu %2 ir būti už jį ilgesnis.")
                .arg(account, parent.account));
    const QueryResult twin =
        db.Query(QStringLiteral("SELECT COUNT(*) FROM Accounts WHERE Account = ? AND ID <> ?"),
                 {Value(account), Value(double(id))});
    if (!twin.ok())
        return storageFailed(twin.Text);
    if (twin.Scalar().toInt32() > 0)
        return BOResult::Failure(account_codes::Duplicate,
                                 QStringLiteral("Tokia sąskaita jau egzistuoja!"));
    if (id > 0 && old.account != account) {
        const QueryResult kids = db.Query(
            QStringLiteral("SELECT Account FROM Accounts WHERE ParentID = ?"), {Value(double(id))});
        if (!kids.ok())
            return storageFailed(kids.Text);
        for (int i = 0; i < kids.RowCount(); ++i) {
            const QString k = kids.At(i, 0).toString();
            if (!k.startsWith(account) || k.size() <= account.size())
                return refused(
                    QStringLiteral("Sąskaitos %1 numerio keisti negalima: subsąskaitos %2 "
                                   "numeris turi prasidėti sąskaitos numeriu.")
                        .arg(old.account, k));
        }
        const qint64 used = entriesOf(db, old.account, &error);
        if (used < 0)
            return storageFailed(error);
        if (used > 0)
            return refused(QStringLiteral("Sąskaitos %1 numerio keisti negalima: ji naudojama "
                                          "operacijose.")
                               .arg(old.account));
    }

    // The path code ends with the record's own number, which a new record learns only
    // when stored.
    const QString pathAbove = parentId > 0 ? parent.ownCode : QString();
    QString ownCode = id > 0 ? pathAbove + QString::number(id) + QLatin1Char('*') : QString();
    rs->SetField(QStringLiteral("Account"), account);
    rs->SetField(QStringLiteral("Name"), name);
    rs->SetField(QStringLiteral("Type"), type);
    if (rs->Field(QStringLiteral("OwnCode")).toString() != ownCode)
        rs->SetField(QStringLiteral("OwnCode"), ownCode);
    if (parentId > 0)
        rs->SetField(QStringLiteral("ParentID"), Value(double(parentId)));
    else {
        rs->SetField(QStringLiteral("ParentID"), Value());
        if (rs->Field(QStringLiteral("GroupFlag")).toInt32() == 0)
            rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(1)));
    }
    if (rs->Field(QStringLiteral("GroupFlag")).isNull())
        rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(0)));
    if (rs->Field(QStringLiteral("BRAPropertyID")).isNull())
        rs->SetField(QStringLiteral("BRAPropertyID"), Value(double(0)));
    rs->Update();

    ObjectStore store(db);
    const BOResult saved = store.Save(AccountKind(), id, rs);
    if (!saved.ok())
        return storageFailed(saved.Text);
    const qint64 storedId = id > 0 ? id : RecordId(rs->Field(QStringLiteral("ID")));
    if (id == 0) {
        ownCode = pathAbove + QString::number(storedId) + QLatin1Char('*');
        const ExecResult r =
            db.Execute(QStringLiteral("UPDATE Accounts SET OwnCode = ? WHERE ID = ?"),
                       {Value(ownCode), Value(double(storedId))});
        if (!r.ok())
            return storageFailed(r.Text);
        rs->SetField(QStringLiteral("OwnCode"), ownCode);
    } else if (old.ownCode != ownCode && !renewOwnCodes(db, id, ownCode, &error)) {
        return storageFailed(error);
    }
    rs->SetField(QStringLiteral("Preview"), QString(account + QLatin1Char(' ') + name));
    rs->Update();
    rs->AcceptChanges();
    auto out = Recordset::Create({FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
                                  FieldDef::Make(QStringLiteral("ID"), FieldType::Integer)});
    out->AddNew();
    out->SetField(QStringLiteral("OIDR"), QString(kinds::Account + QString::number(storedId)));
    out->SetField(QStringLiteral("ID"), Value(double(storedId)));
    out->Update();
    return BOResult::Of(Value(out));
}

BOResult readRecord(Database& db, qint64 id) {
    ObjectStore store(db);
    BOResult r = id > 0 ? store.Read(AccountKind(), id) : store.ReadBlank(AccountKind());
    if (!r.ok())
        return r;
    if (RecordsetPtr rs = r.Data.toRecordset(); rs && id > 0) {
        rs->MoveFirst();
        rs->SetField(QStringLiteral("Preview"),
                     QString(rs->Field(QStringLiteral("Account")).toString() + QLatin1Char(' ') +
                             rs->Field(QStringLiteral("Name")).toString()));
        rs->Update();
        rs->AcceptChanges();
    }
    return r;
}

BOResult deleteRecord(Database& db, qint64 id) {
    StoredAccount old;
    QString error;
    if (!readStored(db, id, &old, &error))
        return storageFailed(error);
    if (!old.found)
        return BOResult::Failure(account_codes::RecordGone,
                                 QStringLiteral("Redaguojama sąskaita nebeegzistuoja!"));
    const QueryResult kids = db.Query(
        QStringLiteral("SELECT COUNT(*) FROM Accounts WHERE ParentID = ?"), {Value(double(id))});
    if (!kids.ok())
        return storageFailed(kids.Text);
    if (kids.Scalar().toInt32() > 0)
        return refused(QStringLiteral("Sąskaitos %1 panaikinti negalima: ji turi subsąskaitų.")
                           .arg(old.account));
    const qint64 used = entriesOf(db, old.account, &error);
    if (used < 0)
        return storageFailed(error);
    if (used > 0)
        return refused(QStringLiteral("Sąskaitos %1 panaikinti negalima: ji naudojama operacijose.")
                           .arg(old.account));
    ObjectStore store(db);
    const BOResult r = store.Delete(AccountKind(), id);
    return r.ok() ? r : storageFailed(r.Text);
}

FieldDefs listFields() {
    return {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("OType"), FieldType::VarWChar, 20),
            FieldDef::Make(QStringLiteral("Preview"), FieldType::VarWChar),
            FieldDef::Make(QStringLiteral("ID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("ParentID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255),
            FieldDef::Make(QStringLiteral("Type"), FieldType::VarWChar, 2),
            FieldDef::Make(QStringLiteral("GroupFlag"), FieldType::SmallInt),
            FieldDef::Make(QStringLiteral("NewAccount"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("Children"), FieldType::Integer)};
}

BOResult listRecords(Database& db, const QString& oid, const QString& from, const QString& to) {
    const QString mode = from.trimmed();
    const bool all = mode.compare(QLatin1String("All"), Qt::CaseInsensitive) == 0;
    const bool full = mode.compare(QLatin1String("FULL"), Qt::CaseInsensitive) == 0;
    QString where;
    ValueArray params;
    if (!all) {
        const qint64 parent = oid.trimmed().startsWith(kinds::Account) ? idFromReference(oid) : 0;
        if (parent > 0) {
            where = QStringLiteral("WHERE a.ParentID = ?");
            params.append(Value(double(parent)));
        } else {
            where = QStringLiteral("WHERE a.ParentID IS NULL");
        }
    }
    const QueryResult q =
        db.Query(QStringLiteral(
                     "SELECT a.ID, a.ParentID, a.Account, a.Name, a.Type, a.GroupFlag, n.Account, "
                     "(SELECT COUNT(*) FROM Accounts c WHERE c.ParentID = a.ID) "
                     "FROM Accounts a LEFT JOIN Accounts n ON n.ID = a.NewID %1 ORDER BY a.Account")
                     .arg(where),
                 params);
    if (!q.ok())
        return storageFailed(q.Text);
    bool ok = false;
    const int first = qMax(1, mode.toInt(&ok));
    const int fromPos = ok ? first : 1;
    const int last = to.trimmed().toInt(&ok);
    const int toPos = ok && last > 0 ? last : q.RowCount();
    auto rs = Recordset::Create(listFields());
    for (int i = fromPos - 1; i < q.RowCount() && i < toPos; ++i) {
        const qint64 id = RecordId(q.At(i, 0));
        const bool isClass = q.At(i, 1).isNull();
        const bool group = q.At(i, 5).toInt32() != 0;
        const QString number = q.At(i, 2).toString();
        const QString name = q.At(i, 3).toString();
        const QString newAccount = q.At(i, 6).toString();
        QString preview = number + QLatin1Char(' ') + name;
        if (full && !newAccount.isEmpty())
            preview += QStringLiteral(" → ") + newAccount;
        rs->AddNew();
        rs->SetField(QStringLiteral("OIDR"), QString(kinds::Account + QString::number(id)));
        rs->SetField(QStringLiteral("OType"), isClass ? QStringLiteral("Class")
                                              : group ? QStringLiteral("Group")
                                                      : QStringLiteral("Item"));
        rs->SetField(QStringLiteral("Preview"), preview);
        rs->SetField(QStringLiteral("ID"), Value(double(id)));
        if (!isClass)
            rs->SetField(QStringLiteral("ParentID"), Value(double(RecordId(q.At(i, 1)))));
        rs->SetField(QStringLiteral("Account"), number);
        rs->SetField(QStringLiteral("Name"), name);
        rs->SetField(QStringLiteral("Type"), q.At(i, 4).toString());
        rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(group ? 1 : 0)));
        rs->SetField(QStringLiteral("NewAccount"), newAccount);
        rs->SetField(QStringLiteral("Children"), Value(q.At(i, 7).toInt32()));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

// Copies the rows of a nested addressee recordset into the blank one of a new record.
void copyAddresseeRows(const RecordsetPtr& from, const RecordsetPtr& to) {
    if (!from || !to)
        return;
    for (int i = 0; i < from->RowCountAll(); ++i) {
        if (from->StatusAt(i) == RowStatus::Deleted)
            continue;
        to->AddNew();
        to->SetField(QStringLiteral("Sign"),
                     from->ValueAt(i, from->FieldIndex(QStringLiteral("Sign"))));
        to->SetField(QStringLiteral("FOID"),
                     from->ValueAt(i, from->FieldIndex(QStringLiteral("FOID"))));
        to->Update();
    }
}

BOResult moveAccountDown(Database& db, qint64 id) {
    StoredAccount acc;
    QString error;
    if (!readStored(db, id, &acc, &error))
        return storageFailed(error);
    if (!acc.found)
        return BOResult::Failure(account_codes::RecordGone,
                                 QStringLiteral("Redaguojama sąskaita nebeegzistuoja!"));
    if (acc.parentId == 0 || acc.groupFlag != 0)
        return refused(
            QStringLiteral("Sąskaitos %1 į žemesnės subsąskaitos lygį pervesti negalima: "
                           "tai klasė arba grupavimo eilutė.")
                .arg(acc.account));
    QString number;
    for (int digits = 1; digits <= 2 && number.isEmpty(); ++digits) {
        const int limit = digits == 1 ? 9 : 99;
        for (int n = 1; n <= limit; ++n) {
            const QString candidate =
                acc.account + QStringLiteral("%1").arg(n, digits, 10, QLatin1Char('0'));
            const QueryResult q =
                db.Query(QStringLiteral("SELECT COUNT(*) FROM Accounts WHERE Account = ?"),
                         {Value(candidate)});
            if (!q.ok())
                return storageFailed(q.Text);
            if (q.Scalar().toInt32() == 0) {
                number = candidate;
                break;
            }
        }
    }
    if (number.isEmpty())
        return refused(
            QStringLiteral("Sąskaitai %1 nebėra laisvo subsąskaitos numerio.").arg(acc.account));

    ObjectStore store(db);
    const BOResult source = store.Read(AccountKind(), id);
    if (!source.ok())
        return storageFailed(source.Text);
    const RecordsetPtr src = source.Data.toRecordset();
    RecordsetPtr rec = BlankAccountRecord(db, &error);
    if (!rec)
        return storageFailed(error);
    rec->MoveFirst();
    rec->SetField(QStringLiteral("ParentID"), Value(double(id)));
    rec->SetField(QStringLiteral("Account"), number);
    rec->SetField(QStringLiteral("Name"), acc.name);
    rec->SetField(QStringLiteral("Type"), acc.type);
    rec->SetField(QStringLiteral("BRAPropertyID"), Value(double(acc.role)));
    for (const char* child : {"BRRequiredAddr", "EnabledAddressee"})
        copyAddresseeRows(src->Field(QString::fromLatin1(child)).toRecordset(),
                          rec->Field(QString::fromLatin1(child)).toRecordset());
    rec->Update();

    const ResultRecord begun = db.Begin();
    if (!begun.ok())
        return storageFailed(begun.Text);
    auto fail = [&db](const BOResult& r) {
        db.Rollback();
        return r;
    };
    const BOResult saved = saveChecked(db, 0, rec);
    if (!saved.ok())
        return fail(saved);
    const qint64 newId = RecordId(rec->Field(QStringLiteral("ID")));
    // The role follows the entries: the account itself is posted to no more.
    ExecResult r = db.Execute(QStringLiteral("UPDATE Accounts SET BRAPropertyID = 0 WHERE ID = ?"),
                              {Value(double(id))});
    if (r.ok())
        r = db.Execute(
            QStringLiteral("INSERT INTO AccountLocks (AccountID, DateToHigh, DateToLow, "
                           "UserOIDR, ComponentID) SELECT ?, DateToHigh, DateToLow, "
                           "UserOIDR, ComponentID FROM AccountLocks WHERE AccountID = ?"),
            {Value(double(newId)), Value(double(id))});
    if (!r.ok())
        return fail(storageFailed(r.Text));
    const ResultRecord moved = MoveAccountEntries(db, acc.account, number);
    if (!moved.ok())
        return fail(BOResult::Failure(moved.Code, moved.Text));
    const ResultRecord committed = db.Commit();
    if (!committed.ok())
        return storageFailed(committed.Text);
    auto out =
        Recordset::Create({FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
                           FieldDef::Make(QStringLiteral("ID"), FieldType::Integer),
                           FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30)});
    out->AddNew();
    out->SetField(QStringLiteral("OIDR"), QString(kinds::Account + QString::number(newId)));
    out->SetField(QStringLiteral("ID"), Value(double(newId)));
    out->SetField(QStringLiteral("Account"), number);
    out->Update();
    return BOResult::Of(Value(out));
}

FieldDefs savedFields() {
    return {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("ID"), FieldType::Integer)};
}

ParameterSpec textParameter(const char* name, bool optional = false) {
    return optional ? ParameterSpec::Optional(QString::fromLatin1(name), ParameterKind::Text,
                                              Value(QString()))
                    : ParameterSpec::Required(QString::fromLatin1(name), ParameterKind::Text);
}

} // namespace

BOResult SaveAccountRecord(Database& db, qint64 id, const RecordsetPtr& rs) {
    if (!rs || rs->RecordCount() == 0)
        return storageFailed(QStringLiteral("Nėra ką įrašyti: sąskaitos duomenys neperduoti."));
    const ResultRecord begun = db.Begin();
    if (!begun.ok())
        return storageFailed(begun.Text);
    const BOResult r = saveChecked(db, id, rs);
    if (!r.ok()) {
        db.Rollback();
        return r;
    }
    const ResultRecord committed = db.Commit();
    return committed.ok() ? r : storageFailed(committed.Text);
}

RecordsetPtr BlankAccountRecord(Database& db, QString* error) {
    ObjectStore store(db);
    const BOResult r = store.ReadBlank(AccountKind());
    if (!r.ok()) {
        if (error)
            *error = r.Text;
        return nullptr;
    }
    return r.Data.toRecordset();
}

ResultRecord RegisterAccountRecordMethods(MethodRegistry& methods) {
    QVector<MethodDefinition> list;
    const QString rec = QStringLiteral("DO0200401_");
    const QString root = QStringLiteral("DO0200400_");

    MethodDefinition get;
    get.name = rec + QStringLiteral("GetOrvoObject");
    get.parameters = {textParameter("OIDR")};
    get.fields = ObjectStore::RecordFields(AccountKind().Root);
    get.doc =
        QStringLiteral("An account record of the chart with its demanded (BRRequiredAddr) and "
                       "allowed (EnabledAddressee) addressee kinds; for the bare code a blank "
                       "record.");
    get.handler = [name = get.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
        if (oidr.size() < 9)
            return readRecord(*ctx.database, 0);
        const qint64 id = idFromReference(oidr);
        if (id == 0)
            return BOResult::Failure(
                1, QStringLiteral("%1: „%2“ nėra sąskaitos nuoroda.").arg(name, oidr));
        return readRecord(*ctx.database, id);
    };
    list.append(get);

    MethodDefinition save;
    save.name = rec + QStringLiteral("SaveOrvoObject");
    save.parameters = {textParameter("OIDR", true)};
    save.fields = savedFields();
    save.doc = QStringLiteral("Stores the account record handed in. Result numbers: 1 the parent "
                              "is gone, 32 the record is gone, 547 the role is gone, 3604 the "
                              "number is taken, 777 a rule of the chart is broken.");
    save.handler = [name = save.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
        qint64 id = 0;
        if (oidr.size() >= 9) {
            id = idFromReference(oidr);
            if (id == 0)
                return BOResult::Failure(
                    1, QStringLiteral("%1: „%2“ nėra sąskaitos nuoroda.").arg(name, oidr));
        }
        return SaveAccountRecord(*ctx.database, id, InputRecordset(args.Input()));
    };
    list.append(save);

    for (const QString& prefix : {rec, root}) {
        MethodDefinition del;
        del.name = prefix + QStringLiteral("DeleteOrvoObject");
        del.parameters = {textParameter("OIDR")};
        del.doc =
            QStringLiteral("Removes an account that has no subaccounts and no entries, with its "
                           "addressee kinds and lock.");
        del.handler = [name = del.name](MethodContext& ctx, const MethodArguments& args) {
            if (!ctx.database)
                return NoBookResult(name);
            const qint64 id = idFromReference(args.Text(QStringLiteral("OIDR")));
            if (id == 0)
                return BOResult::Failure(1, QStringLiteral("%1: „%2“ nėra sąskaitos nuoroda.")
                                                .arg(name, args.Text(QStringLiteral("OIDR"))));
            return deleteRecord(*ctx.database, id);
        };
        list.append(del);

        MethodDefinition rows;
        rows.name = prefix + QStringLiteral("GetOrvoObjectList");
        rows.parameters = {textParameter("OID", true), textParameter("From", true),
                           textParameter("To", true)};
        rows.fields = listFields();
        rows.doc = QStringLiteral("The child rows of a node of the chart: the classes under "
                                  "O0200400, the children of O0200401<ID>; From FULL shows the new "
                                  "chart's account in Preview, From All lists the whole chart.");
        rows.handler = [name = rows.name](MethodContext& ctx, const MethodArguments& args) {
            if (!ctx.database)
                return NoBookResult(name);
            return listRecords(*ctx.database, args.Text(QStringLiteral("OID")),
                               args.Text(QStringLiteral("From")), args.Text(QStringLiteral("To")));
        };
        list.append(rows);
    }

    MethodDefinition down;
    down.name = rec + QStringLiteral("MoveAccountDown");
    down.parameters = {textParameter("ID")};
    down.fields = {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
                   FieldDef::Make(QStringLiteral("ID"), FieldType::Integer),
                   FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30)};
    down.doc = QStringLiteral("Makes a new subaccount under the account and moves the account's "
                              "role, addressee kinds, lock and entries into it. Cannot be undone.");
    down.handler = [name = down.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const qint64 id = idFromReference(args.Text(QStringLiteral("ID")));
        if (id == 0)
            return refused(QStringLiteral("%1: „%2“ nėra sąskaitos numeris įraše.")
                               .arg(name, args.Text(QStringLiteral("ID"))));
        return moveAccountDown(*ctx.database, id);
    };
    list.append(down);

    return RegisterAll(methods, list);
}

} // namespace orvo::host
