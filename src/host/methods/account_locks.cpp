#include "host/methods/account_locks.h"

#include "core/recordset.h"

#include "host/methods/account_chart.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {

const QDate kNoLock(1900, 1, 1);

QString dotted(const QDate& d) {
    return d.toString(QStringLiteral("yyyy.MM.dd"));
}

bool isManager(MethodContext& ctx) {
    const QueryResult q = ctx.database->Query(
        QStringLiteral("SELECT IsAdmin FROM Users WHERE ID = ?"), {Value(ctx.userId)});
    return q.ok() && q.Scalar().toInt32() != 0;
}

FieldDefs lockFields() {
    return {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("Preview"), FieldType::VarWChar),
            FieldDef::Make(QStringLiteral("DateToHigh"), FieldType::Date),
            FieldDef::Make(QStringLiteral("DateToLow"), FieldType::Date),
            FieldDef::Make(QStringLiteral("UserOIDR"), FieldType::VarWChar, 50),
            FieldDef::Make(QStringLiteral("ComponentID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("BLOIDR"), FieldType::VarWChar, 30)};
}

BOResult getLocks(Database& db, bool onlyLocked) {
    const QueryResult q = db.Query(
        QStringLiteral("SELECT a.ID, a.Account, a.Name, l.DateToHigh, l.DateToLow, l.UserOIDR, "
                       "l.ComponentID, l.ID FROM Accounts a LEFT JOIN AccountLocks l ON "
                       "l.AccountID = a.ID WHERE a.GroupFlag = 0 ORDER BY a.Account"));
    if (!q.ok())
        return BOResult::Failure(bo_codes::MethodFailed, q.Text);
    auto rs = Recordset::Create(lockFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        const QDate high = q.At(i, 3).isNull() ? kNoLock : q.At(i, 3).toDate();
        const QDate low = q.At(i, 4).isNull() ? kNoLock : q.At(i, 4).toDate();
        if (onlyLocked && high <= kNoLock && low <= kNoLock)
            continue;
        rs->AddNew();
        rs->SetField(QStringLiteral("OIDR"),
                     QString(kinds::Account + QString::number(RecordId(q.At(i, 0)))));
        rs->SetField(QStringLiteral("Account"), q.At(i, 1).toString());
        rs->SetField(QStringLiteral("Preview"),
                     QString(q.At(i, 1).toString() + QLatin1Char(' ') + q.At(i, 2).toString()));
        rs->SetField(QStringLiteral("DateToHigh"), Value(high));
        rs->SetField(QStringLiteral("DateToLow"), Value(low));
        rs->SetField(QStringLiteral("UserOIDR"), q.At(i, 5).toString());
        rs->SetField(QStringLiteral("ComponentID"), Value(q.At(i, 6).toInt32()));
        if (!q.At(i, 7).isNull())
            rs->SetField(QStringLiteral("BLOIDR"),
                         QString(kinds::AccountLock + QString::number(RecordId(q.At(i, 7)))));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

BOResult saveLock(MethodContext& ctx, const QString& which, const QDate& high, const QDate& low) {
    Database& db = *ctx.database;
    const bool all = which.compare(QLatin1String("All"), Qt::CaseInsensitive) == 0;
    const QueryResult accounts =
        all ? db.Query(QStringLiteral(
                  "SELECT a.ID, a.Account, l.DateToHigh FROM Accounts a LEFT JOIN AccountLocks l "
                  "ON l.AccountID = a.ID WHERE a.GroupFlag = 0"))
            : db.Query(
                  QStringLiteral("SELECT a.ID, a.Account, l.DateToHigh FROM Accounts a LEFT JOIN "
                                 "AccountLocks l ON l.AccountID = a.ID WHERE a.Account = ?"),
                  {Value(which)});
    if (!accounts.ok())
        return BOResult::Failure(bo_codes::MethodFailed, accounts.Text);
    if (!all && accounts.RowCount() == 0)
        return BOResult::Failure(codes::Refused,
                                 QStringLiteral("Sąskaita %1 sąskaitų plane nerasta.").arg(which));
    const bool manager = isManager(ctx);
    const ResultRecord begun = db.Begin();
    if (!begun.ok())
        return BOResult::Failure(begun.Code, begun.Text);
    for (int i = 0; i < accounts.RowCount(); ++i) {
        const QDate oldHigh = accounts.At(i, 2).isNull() ? kNoLock : accounts.At(i, 2).toDate();
        if (!manager && oldHigh != high) {
            db.Rollback();
            return BOResult::Failure(
                codes::Refused,
                QStringLiteral("Sąskaitos %1 vadovo blokavimo datą gali keisti tik vadovas.")
                    .arg(accounts.At(i, 1).toString()));
        }
        const Value id(double(RecordId(accounts.At(i, 0))));
        ExecResult r =
            db.Execute(QStringLiteral("DELETE FROM AccountLocks WHERE AccountID = ?"), {id});
        if (r.ok() && (high > kNoLock || low > kNoLock))
            r = db.Execute(
                QStringLiteral("INSERT INTO AccountLocks (AccountID, DateToHigh, "
                               "DateToLow, UserOIDR, ComponentID) VALUES (?, ?, ?, ?, 0)"),
                {id, Value(high), Value(low), Value(ctx.userLogin)});
        if (!r.ok()) {
            db.Rollback();
            return BOResult::Failure(bo_codes::MethodFailed, r.Text);
        }
    }
    const ResultRecord committed = db.Commit();
    if (!committed.ok())
        return BOResult::Failure(committed.Code, committed.Text);
    return BOResult::Of(Value(true));
}

} // namespace

ResultRecord CheckAccountLock(Database& db, const QString& account, const QDate& date,
                              bool manager) {
    const QueryResult q = db.Query(
        QStringLiteral("SELECT l.DateToHigh, l.DateToLow FROM AccountLocks l JOIN Accounts a ON "
                       "a.ID = l.AccountID WHERE a.Account = ?"),
        {Value(account.trimmed())});
    if (!q.ok())
        return ResultRecord::Failure(bo_codes::MethodFailed, q.Text);
    if (q.RowCount() == 0)
        return ResultRecord::Success();
    const QDate high = q.At(0, 0).toDate();
    const QDate low = q.At(0, 1).toDate();
    const QDate until = manager ? high : qMax(high, low);
    if (until > kNoLock && date <= until)
        return ResultRecord::Failure(
            codes::Refused,
            QStringLiteral("Sąskaita %1 užblokuota iki %2: įrašo data %3 patenka į uždarytą "
                           "laikotarpį.")
                .arg(account.trimmed(), dotted(until), dotted(date)));
    return ResultRecord::Success();
}

ResultRecord RegisterAccountLockMethods(MethodRegistry& methods) {
    MethodDefinition get;
    get.name = QStringLiteral("DO0201300_GetAccountLocks");
    get.parameters = {ParameterSpec::Optional(QStringLiteral("OnlyLocked"), ParameterKind::Boolean,
                                              Value(false))};
    get.fields = lockFields();
    get.doc = QStringLiteral("The lock dates of every posting account; with OnlyLocked true only "
                             "the locked ones. 1900-01-01 means no lock.");
    get.handler = [name = get.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        return getLocks(*ctx.database, args.Boolean(QStringLiteral("OnlyLocked")));
    };

    MethodDefinition save;
    save.name = QStringLiteral("DO0201300_SaveAccountLock");
    save.parameters = {ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
                       ParameterSpec::Optional(QStringLiteral("DateToHigh"), ParameterKind::Text,
                                               Value(QString())),
                       ParameterSpec::Optional(QStringLiteral("DateToLow"), ParameterKind::Text,
                                               Value(QString()))};
    save.doc = QStringLiteral("Sets the manager's and the ordinary lock date of an account, or of "
                              "every posting account for All; an empty date removes the lock. "
                              "Only the manager may change DateToHigh.");
    save.handler = [name = save.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        QDate dates[2];
        const char* names[2] = {"DateToHigh", "DateToLow"};
        for (int i = 0; i < 2; ++i) {
            const QString text = args.Text(QString::fromLatin1(names[i])).trimmed();
            if (text.isEmpty()) {
                dates[i] = kNoLock;
                continue;
            }
            QString t = text;
            t.replace(QLatin1Char('-'), QLatin1Char('.'));
            dates[i] = QDate::fromString(t, QStringLiteral("yyyy.MM.dd"));
            if (!dates[i].isValid())
                return BOResult::Failure(
                    codes::Refused,
                    QStringLiteral("%1: „%2“ nėra data (laukiama yyyy.mm.dd).").arg(name, text));
        }
        return saveLock(ctx, args.Text(QStringLiteral("Account")).trimmed(), dates[0], dates[1]);
    };

    MethodDefinition check;
    check.name = QStringLiteral("DO0201300_CheckAccountLock");
    check.parameters = {ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
                        ParameterSpec::Required(QStringLiteral("Date"), ParameterKind::Date)};
    check.doc = QStringLiteral("Refuses (777) a posting to the account on the date when the date "
                               "is on or before a lock date of the account for this user.");
    check.handler = [name = check.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const ResultRecord r = CheckAccountLock(*ctx.database, args.Text(QStringLiteral("Account")),
                                                args.Date(QStringLiteral("Date")), isManager(ctx));
        return r.ok() ? BOResult::Of(Value(true)) : BOResult::Failure(r.Code, r.Text);
    };

    for (const MethodDefinition* m : {&get, &save, &check}) {
        const ResultRecord r = methods.Register(*m);
        if (!r.ok())
            return r;
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
