#include "host/objects/operation_methods.h"

#include "host/methods/method_arguments.h"

#include "host/methods/debt_methods.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/objects/object_store.h"
#include "host/objects/operation_kind.h"
#include "host/storage/database.h"
#include "host/storage/money.h"

namespace orvo::host {

namespace {

BOResult notAReference(const QString& method, const QString& oidr) {
    return BOResult::Failure(
        1, QStringLiteral("%1: „%2“ nėra operacijos įrašo nuoroda.").arg(method, oidr));
}

RecordsetPtr listRecordset() {
    return Recordset::Create({TextField("OIDR", 30), TextField("OType", 20), TextField("Preview")});
}

// List rows OIDR, OType, Preview of operations read as ID, OType, DateD, Number, Comment.
RecordsetPtr operationRows(const ObjectKind& kind, const QueryResult& q) {
    RecordsetPtr out = listRecordset();
    for (int i = 0; i < q.RowCount(); ++i) {
        out->AddNew();
        out->SetField(QStringLiteral("OIDR"),
                      ObjectStore::OIDRFor(kind, static_cast<qint64>(q.At(i, 0).toDouble())));
        out->SetField(QStringLiteral("OType"), q.At(i, 1).toString());
        out->SetField(QStringLiteral("Preview"),
                      OperationPreview(q.At(i, 2), q.At(i, 3).toString(), q.At(i, 4).toString()));
        out->Update();
    }
    out->AcceptChanges();
    out->MoveFirst();
    return out;
}

// The demands of every entry's accounts, as the RequiredAddr rows of the entry.
void fillRequiredAddr(Database& db, const OperationPostingRules& rules, const Recordset& op) {
    if (!rules.Demands)
        return;
    const RecordsetPtr br = op.Field(QStringLiteral("BR")).toRecordset();
    if (!br)
        return;
    for (int i = 0; i < br->RowCountAll(); ++i) {
        const RecordsetPtr req =
            br->ValueAt(i, br->FieldIndex(QStringLiteral("RequiredAddr"))).toRecordset();
        if (!req)
            continue;
        const QString debit =
            br->ValueAt(i, br->FieldIndex(QStringLiteral("AccountD"))).toString().trimmed();
        const QString credit =
            br->ValueAt(i, br->FieldIndex(QStringLiteral("AccountC"))).toString().trimmed();
        for (const auto& side : {std::make_pair(debit, 1), std::make_pair(credit, -1)}) {
            if (side.first.isEmpty())
                continue;
            for (const AddresseeDemand& d : rules.Demands(db, side.first, side.second)) {
                req->AddNew();
                req->SetField(QStringLiteral("Sign"), Value(qint16(d.Sign)));
                req->SetField(QStringLiteral("FOID"), d.FOID);
                req->Update();
            }
        }
        req->AcceptChanges();
        req->MoveFirst();
    }
}

} // namespace

ResultRecord RegisterOperationMethods(MethodRegistry& methods, const SessionUser& user,
                                      const OperationPostingRules& rules) {
    const ObjectKindPtr kind = std::make_shared<const ObjectKind>(OperationKind(rules));
    const QString prefix = QStringLiteral("D") + kind->Code + QStringLiteral("_");
    const ObjectSaveActor actor{user.Code, user.Name};
    QVector<MethodDefinition> defs;

    MethodDefinition get;
    get.name = prefix + QStringLiteral("GetOrvoObject");
    get.parameters = {ParameterSpec::Required(QStringLiteral("OIDR"), ParameterKind::Text)};
    get.fields = ObjectStore::RecordFields(kind->Root);
    get.doc = QStringLiteral("The operation with its entries, their currency sides, addressees "
                             "and the addressee kinds their accounts demand; a kind code gives a "
                             "blank operation of that kind. An entry's OIDR reads its operation.");
    get.handler = [kind, rules, name = get.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        ObjectStore store(*ctx.database);
        const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
        if (oidr.size() < 9)
            return store.ReadBlank(*kind, oidr);
        const qint64 id = ObjectStore::IdFromOIDR(*kind, oidr);
        if (id == 0)
            return notAReference(name, oidr);
        BOResult r = store.Read(*kind, id);
        if (r.ok())
            if (const RecordsetPtr rs = r.Data.toRecordset())
                fillRequiredAddr(*ctx.database, rules, *rs);
        return r;
    };
    defs.append(get);

    MethodDefinition save;
    save.name = prefix + QStringLiteral("SaveOrvoObject");
    save.parameters = {
        ParameterSpec::Optional(QStringLiteral("OIDR"), ParameterKind::Text, Value(QString()))};
    save.fields = {TextField("OIDR", 30), TypedField("ID", FieldType::Integer),
                   TextField("LockGUID", 40)};
    save.doc = QStringLiteral("Stores the operation handed in with its entries in one "
                              "transaction, stamps who changed it and logs the change. Refused "
                              "(777, nothing stored): a sum not above zero, an account outside "
                              "the chart, a currency side without code or rate, a missing "
                              "demanded addressee, a date in a locked period, a copy older "
                              "than the stored record.");
    save.handler = [kind, actor, name = save.name](MethodContext& ctx,
                                                   const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
        qint64 id = 0;
        if (oidr.size() >= 9) {
            id = ObjectStore::IdFromOIDR(*kind, oidr);
            if (id == 0)
                return notAReference(name, oidr);
        }
        ObjectStore store(*ctx.database);
        return store.Save(*kind, id, InputRecordset(args.Input()), actor);
    };
    defs.append(save);

    MethodDefinition del;
    del.name = prefix + QStringLiteral("DeleteOrvoObject");
    del.parameters = {ParameterSpec::Required(QStringLiteral("OIDR"), ParameterKind::Text)};
    del.doc = QStringLiteral("Removes the operation with its entries, currency sides and "
                             "addressees; the change log keeps the deletion.");
    del.handler = [kind, actor, name = del.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
        const qint64 id = ObjectStore::IdFromOIDR(*kind, oidr);
        if (id == 0)
            return notAReference(name, oidr);
        ObjectStore store(*ctx.database);
        return store.Delete(*kind, id, actor);
    };
    defs.append(del);

    MethodDefinition list;
    list.name = prefix + QStringLiteral("GetOrvoObjectList");
    list.parameters = {
        ParameterSpec::Optional(QStringLiteral("OID"), ParameterKind::Text, Value(QString())),
        ParameterSpec::Optional(QStringLiteral("From"), ParameterKind::Text, Value(QString())),
        ParameterSpec::Optional(QStringLiteral("To"), ParameterKind::Text, Value(QString()))};
    list.fields = {TextField("OIDR", 30), TextField("OType", 20), TextField("Preview")};
    list.doc = QStringLiteral("Operations by date: OIDR, OType (the document kind), Preview "
                              "(date, number, comment). An OID whose number follows its code "
                              "(a group's reference) lists that group's operations only. From "
                              "and To are 1-based positions, so a long list loads a screen at "
                              "a time.");
    list.handler = [kind, name = list.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        Database& db = *ctx.database;
        const QString oid = args.Text(QStringLiteral("OID")).trimmed();
        ValueArray params;
        QString where;
        if (oid.size() >= 9 && !oid.startsWith(kind->Code)) {
            bool ok = false;
            const qint64 group = oid.mid(8).toLongLong(&ok);
            if (!ok)
                return BOResult::Failure(
                    1, QStringLiteral("%1: „%2“ nėra grupės nuoroda.").arg(name, oid));
            where = QStringLiteral(" WHERE BROperGroupID = ?");
            params << Value(double(group));
        }
        QString sql = QStringLiteral("SELECT ID, OType, DateD, Number, Comment FROM BROpers") +
                      where + QStringLiteral(" ORDER BY DateD, ID");
        sql += PagingClause(db, ListPosition(args.Text(QStringLiteral("From"))),
                            ListPosition(args.Text(QStringLiteral("To"))), params);
        const QueryResult q = db.Query(sql, params);
        if (!q.ok())
            return BOResult::Failure(1, q.Text);
        return BOResult::Of(Value(operationRows(*kind, q)));
    };
    defs.append(list);

    MethodDefinition owner;
    owner.name = prefix + QStringLiteral("GetOperationOfEntry");
    owner.parameters = {ParameterSpec::Required(QStringLiteral("OIDR"), ParameterKind::Text)};
    owner.fields = list.fields;
    owner.doc = QStringLiteral("The operation that an entry's reference (\"O0201500\" + the "
                               "entry's number) belongs to; an operation's own reference gives "
                               "the operation. Rows OIDR, OType, Preview: none when neither.");
    owner.handler = [kind, name = owner.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
        const qint64 id = ObjectStore::IdFromOIDR(*kind, oidr);
        if (id == 0)
            return notAReference(name, oidr);
        const QueryResult q = ctx.database->Query(
            QStringLiteral("SELECT ID, OType, DateD, Number, Comment FROM BROpers WHERE ID = ? OR "
                           "ID = (SELECT BROperID FROM BR WHERE ID = ?)"),
            {Value(double(id)), Value(double(id))});
        if (!q.ok())
            return BOResult::Failure(1, q.Text);
        return BOResult::Of(Value(operationRows(*kind, q)));
    };
    defs.append(owner);

    MethodDefinition log;
    log.name = QStringLiteral("GetBROperLog");
    log.parameters = {ParameterSpec::Required(QStringLiteral("OIDR"), ParameterKind::Text)};
    log.fields = {TypedField("Date", FieldType::DBTimeStamp), TextField("User"),
                  TextField("Action")};
    log.doc = QStringLiteral("The change protocol of an operation, oldest first: Date of the "
                             "change, User (the name, or the login when it has none), Action "
                             "(Sukurta, Pakeista, Panaikinta).");
    log.handler = [kind, name = log.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
        const qint64 id = ObjectStore::IdFromOIDR(*kind, oidr);
        if (id == 0)
            return notAReference(name, oidr);
        const QueryResult q = ctx.database->Query(
            QStringLiteral("SELECT ChangeDate, UserName, UserOIDR, Action FROM BROperLog WHERE "
                           "BROperID = ? ORDER BY ChangeDate, ID"),
            {Value(double(id))});
        if (!q.ok())
            return BOResult::Failure(1, q.Text);
        RecordsetPtr out = Recordset::Create(
            {TypedField("Date", FieldType::DBTimeStamp), TextField("User"), TextField("Action")});
        for (int i = 0; i < q.RowCount(); ++i) {
            out->AddNew();
            out->SetField(QStringLiteral("Date"), q.At(i, 0));
            const QString userName = q.At(i, 1).toString();
            out->SetField(QStringLiteral("User"),
                          userName.isEmpty() ? q.At(i, 2).toString() : userName);
            out->SetField(QStringLiteral("Action"), q.At(i, 3).toString());
            out->Update();
        }
        out->AcceptChanges();
        out->MoveFirst();
        return BOResult::Of(Value(out));
    };
    defs.append(log);

    MethodDefinition related;
    related.name = QStringLiteral("GetRelatedBR");
    related.parameters = {ParameterSpec::Required(QStringLiteral("OIDR"), ParameterKind::Text)};
    related.fields = {TextField("OIDR", 30),
                      TypedField("ID", FieldType::Integer),
                      TypedField("DateD", FieldType::Date),
                      TypedField("SumA", FieldType::Double),
                      TextField("AccountD", 20),
                      TextField("AccountC", 20),
                      TextField("Info"),
                      TypedField("Sign", FieldType::SmallInt),
                      TextField("FOIDR", 50)};
    related.doc = QStringLiteral("Entries of other operations whose addressee rows refer to an "
                                 "entry of this operation (FOIDR \"O0201500\" + that entry's "
                                 "number): the other operation's OIDR, the entry's ID, DateD, "
                                 "SumA, AccountD, AccountC, Info, and the referring row's Sign "
                                 "and FOIDR.");
    related.handler = [kind, name = related.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
        const qint64 id = ObjectStore::IdFromOIDR(*kind, oidr);
        if (id == 0)
            return notAReference(name, oidr);
        Database& db = *ctx.database;
        // The references are texts: build the ones this operation's entries can be named
        // by, then look them up through the index on FOIDR.
        const QueryResult mine =
            db.Query(QStringLiteral("SELECT ID FROM BR WHERE BROperID = ?"), {Value(double(id))});
        if (!mine.ok())
            return BOResult::Failure(1, mine.Text);
        RecordsetPtr out = Recordset::Create(
            {TextField("OIDR", 30), TypedField("ID", FieldType::Integer),
             TypedField("DateD", FieldType::Date), TypedField("SumA", FieldType::Double),
             TextField("AccountD", 20), TextField("AccountC", 20), TextField("Info"),
             TypedField("Sign", FieldType::SmallInt), TextField("FOIDR", 50)});
        for (int m = 0; m < mine.RowCount(); ++m) {
            const QString ref =
                ObjectStore::OIDRFor(*kind, static_cast<qint64>(mine.At(m, 0).toDouble()));
            const QueryResult q = db.Query(
                QStringLiteral("SELECT b.BROperID, b.ID, b.DateD, b.SumA, b.AccountD, b.AccountC, "
                               "b.Info, p.Sign, p.FOIDR FROM BRProperties p JOIN BR b ON b.ID = "
                               "p.BRID WHERE p.FOIDR = ? AND b.BROperID <> ? ORDER BY b.ID, p.ID"),
                {Value(ref), Value(double(id))});
            if (!q.ok())
                return BOResult::Failure(1, q.Text);
            for (int i = 0; i < q.RowCount(); ++i) {
                out->AddNew();
                out->SetField(
                    QStringLiteral("OIDR"),
                    ObjectStore::OIDRFor(*kind, static_cast<qint64>(q.At(i, 0).toDouble())));
                out->SetField(QStringLiteral("ID"), q.At(i, 1));
                out->SetField(QStringLiteral("DateD"), q.At(i, 2));
                out->SetField(QStringLiteral("SumA"), Money::AmountFromValue(q.At(i, 3)));
                out->SetField(QStringLiteral("AccountD"), q.At(i, 4));
                out->SetField(QStringLiteral("AccountC"), q.At(i, 5));
                out->SetField(QStringLiteral("Info"), q.At(i, 6));
                out->SetField(QStringLiteral("Sign"), Value(qint16(q.At(i, 7).toInt32())));
                out->SetField(QStringLiteral("FOIDR"), q.At(i, 8));
                out->Update();
            }
        }
        out->AcceptChanges();
        out->MoveFirst();
        return BOResult::Of(Value(out));
    };
    defs.append(related);

    MethodDefinition maxNumber;
    maxNumber.name = QStringLiteral("GetBROperMaxNumber");
    maxNumber.parameters = {
        ParameterSpec::Required(QStringLiteral("BROperGroupID"), ParameterKind::Integer)};
    maxNumber.fields = {TypedField("MaxNumber", FieldType::Integer)};
    maxNumber.doc = QStringLiteral("The highest counter (AutoNumber) of the group's operations; "
                                   "0 for a group without any.");
    maxNumber.handler = [name = maxNumber.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QueryResult q = ctx.database->Query(
            QStringLiteral("SELECT COALESCE(MAX(AutoNumber), 0) FROM BROpers WHERE "
                           "BROperGroupID = ?"),
            {Value(args.Integer(QStringLiteral("BROperGroupID")))});
        if (!q.ok())
            return BOResult::Failure(1, q.Text);
        RecordsetPtr out = Recordset::Create({TypedField("MaxNumber", FieldType::Integer)});
        out->AddNew();
        out->SetField(QStringLiteral("MaxNumber"), Value(q.Scalar().toInt32()));
        out->Update();
        out->AcceptChanges();
        out->MoveFirst();
        return BOResult::Of(Value(out));
    };
    defs.append(maxNumber);

    for (const MethodDefinition& m : defs) {
        const ResultRecord r = methods.Register(m);
        if (!r.ok())
            return r;
    }
    // The debt lists and account totals that the operation object's windows read.
    return RegisterDebtMethods(methods);
}

} // namespace orvo::host
