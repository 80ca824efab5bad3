#include "host/methods/group_debt_methods.h"

#include "core/null_readers.h"
#include "core/recordset.h"
#include "host/methods/debt_query.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"
#include "host/storage/money.h"
#include "host/storage/transaction_guard.h"

#include <QSet>

namespace orvo::host {

namespace {

const QString kCreate = QStringLiteral("DO0201400_CreateFullSum");
const QString kRead = QStringLiteral("DO0201400_GetGroupDebts");

FieldDefs countFields() {
    return {TypedField("Count", FieldType::Integer)};
}

FieldDefs debtFields() {
    return {TypedField("BRID", FieldType::Integer),
            TypedField("BROperID", FieldType::Integer),
            TypedField("DateAt", FieldType::Date),
            TypedField("DateD", FieldType::Date),
            TextField("Account", 30),
            TypedField("Sign", FieldType::SmallInt),
            TextField("FOIDR", 50),
            TextField("CurrencyCode", 3),
            TypedField("RestA", FieldType::Double),
            TypedField("RestCurr", FieldType::Double)};
}

BOResult countResult(qint64 count) {
    auto rs = Recordset::Create(countFields());
    rs->AddNew();
    rs->SetField(QStringLiteral("Count"), Value(qint32(count)));
    rs->Update();
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

// A date as the component writes it (yyyy.mm.dd) or as storage does (yyyy-mm-dd).
QDate dateOf(const QString& text) {
    QDate d = QDate::fromString(text.trimmed(), QStringLiteral("yyyy.MM.dd"));
    if (!d.isValid())
        d = QDate::fromString(text.trimmed(), QStringLiteral("yyyy-MM-dd"));
    return d;
}

ResultRecord checkGroup(Database& db, const QString& method, qint64 groupId) {
    const QueryResult q = db.Query(QStringLiteral("SELECT COUNT(*) FROM BROperGroups WHERE ID = ?"),
                                   {Value(double(groupId))});
    if (!q.ok())
        return ResultRecord::Failure(bo_codes::MethodFailed, q.Text);
    if (q.Scalar().toInt32() == 0)
        return ResultRecord::Failure(
            777, QStringLiteral("%1: grupės %2 nėra.").arg(method).arg(groupId));
    return ResultRecord::Success();
}

BOResult deleteSnapshot(Database& db, qint64 groupId) {
    const ExecResult r =
        db.Execute(QStringLiteral("DELETE FROM BROperGroupDebts WHERE BROperGroupID = ?"),
                   {Value(double(groupId))});
    if (!r.ok())
        return MethodFailure(r.Text);
    return countResult(r.RowsAffected);
}

BOResult createSnapshot(Database& db, qint64 groupId, const QDate& date) {
    // The accounts the group's entries stand on are the only ones whose debts can be the
    // group's; each is asked once, and only the debts of the group's entries are kept.
    const QueryResult accounts = db.Query(
        QStringLiteral("SELECT DISTINCT b.AccountD, b.AccountC FROM BR b JOIN BROpers o ON "
                       "o.ID = b.BROperID WHERE o.BROperGroupID = ? AND b.DateD <= ?"),
        {Value(double(groupId)), Value(date)});
    if (!accounts.ok())
        return MethodFailure(accounts.Text);
    QStringList asked;
    for (int i = 0; i < accounts.RowCount(); ++i)
        for (int c = 0; c < 2; ++c) {
            const QString account = accounts.At(i, c).toString().trimmed();
            if (!account.isEmpty() && !asked.contains(account))
                asked << account;
        }
    const QueryResult operations = db.Query(
        QStringLiteral("SELECT ID FROM BROpers WHERE BROperGroupID = ?"), {Value(double(groupId))});
    if (!operations.ok())
        return MethodFailure(operations.Text);
    QSet<qint64> ofGroup;
    for (int i = 0; i < operations.RowCount(); ++i)
        ofGroup.insert(NzId(operations.At(i, 0)));

    QVector<ValueArray> rows;
    DebtQuery query(db);
    for (const QString& account : asked) {
        DebtSelection s;
        s.Account = account;
        s.Date = date;
        const DebtList list = query.Open(s);
        if (!list.ok())
            return MethodFailure(list.Text);
        for (const DebtRow& d : list.Rows) {
            // A debt is owed by someone: an entry without an addressee (the bank's or
            // the sale's own side) is a balance, not a debt of the group.
            if (!ofGroup.contains(d.OperationId) || d.FOIDR.trimmed().isEmpty())
                continue;
            rows.append({Value(double(groupId)), Value(double(d.EntryId)),
                         Value(double(d.OperationId)), Value(date), Value(d.DateD), Value(account),
                         Value(qint32(d.Sign)), Value(d.FOIDR), Value(d.CurrencyCode),
                         Money::CentsValue(d.RestCents), Money::CentsValue(d.RestCurrCents)});
        }
    }

    TransactionGuard tx(db);
    if (!tx.ok())
        return BOResult::Failure(tx.result().Code, tx.result().Text);
    const ExecResult cleared =
        db.Execute(QStringLiteral("DELETE FROM BROperGroupDebts WHERE BROperGroupID = ?"),
                   {Value(double(groupId))});
    if (!cleared.ok())
        return MethodFailure(cleared.Text);
    if (!rows.isEmpty()) {
        const ExecResult inserted = db.ExecuteMany(
            QStringLiteral("INSERT INTO BROperGroupDebts (BROperGroupID, BRID, BROperID, DateAt, "
                           "DateD, Account, Sign, FOIDR, CurrencyCode, RestA, RestCurr) VALUES "
                           "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
            rows);
        if (!inserted.ok())
            return MethodFailure(inserted.Text);
    }
    const ResultRecord committed = tx.Commit();
    if (!committed.ok())
        return BOResult::Failure(committed.Code, committed.Text);
    return countResult(rows.size());
}

BOResult createFullSum(Database& db, qint64 groupId, const QString& dateText) {
    const ResultRecord group = checkGroup(db, kCreate, groupId);
    if (!group.ok())
        return BOResult::Failure(group.Code, group.Text);
    if (dateText.trimmed().isEmpty())
        return deleteSnapshot(db, groupId);
    const QDate date = dateOf(dateText);
    if (!date.isValid())
        return MethodRefusal(QStringLiteral("%1: neteisinga data „%2“.").arg(kCreate, dateText));
    return createSnapshot(db, groupId, date);
}

BOResult groupDebts(Database& db, qint64 groupId) {
    const QueryResult q = db.Query(
        QStringLiteral("SELECT BRID, BROperID, DateAt, DateD, Account, Sign, FOIDR, CurrencyCode, "
                       "RestA, RestCurr FROM BROperGroupDebts WHERE BROperGroupID = ? ORDER BY "
                       "DateD, BRID"),
        {Value(double(groupId))});
    if (!q.ok())
        return MethodFailure(q.Text);
    auto rs = Recordset::Create(debtFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        rs->AddNew();
        rs->SetField(QStringLiteral("BRID"), Value(qint32(NzId(q.At(i, 0)))));
        rs->SetField(QStringLiteral("BROperID"), Value(qint32(NzId(q.At(i, 1)))));
        rs->SetField(QStringLiteral("DateAt"), q.At(i, 2));
        rs->SetField(QStringLiteral("DateD"), q.At(i, 3));
        rs->SetField(QStringLiteral("Account"), q.At(i, 4).toString());
        rs->SetField(QStringLiteral("Sign"), Value(qint16(q.At(i, 5).toInt32())));
        rs->SetField(QStringLiteral("FOIDR"), q.At(i, 6).toString());
        rs->SetField(QStringLiteral("CurrencyCode"), q.At(i, 7).toString());
        rs->SetField(QStringLiteral("RestA"), Money::AmountFromValue(q.At(i, 8)));
        rs->SetField(QStringLiteral("RestCurr"), Money::AmountFromValue(q.At(i, 9)));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

} // namespace

ResultRecord RegisterGroupDebtMethods(MethodRegistry& methods) {
    const QVector<MethodDefinition> list = {
        BookMethod(kCreate,
                   {ParameterSpec::Required(QStringLiteral("GroupID"), ParameterKind::Integer),
                    ParameterSpec::Optional(QStringLiteral("Date"), ParameterKind::Text,
                                            Value(QString()))},
                   countFields(),
                   QStringLiteral("With a date: the open debts of the entries of the group's "
                                  "operations at that date replace the group's snapshot; with "
                                  "an empty text the snapshot is deleted. Count of rows."),
                   [](MethodContext& ctx, const MethodArguments& a) {
                       return createFullSum(*ctx.database, a.Integer(QStringLiteral("GroupID")),
                                            a.Text(QStringLiteral("Date")));
                   }),
        BookMethod(kRead,
                   {ParameterSpec::Required(QStringLiteral("GroupID"), ParameterKind::Integer)},
                   debtFields(),
                   QStringLiteral("The group's snapshot of debts, by date and entry: rests in "
                                  "the base currency (RestA) and the debt's own (RestCurr)."),
                   [](MethodContext& ctx, const MethodArguments& a) {
                       return groupDebts(*ctx.database, a.Integer(QStringLiteral("GroupID")));
                   }),
    };
    return RegisterAll(methods, list);
}

} // namespace orvo::host
