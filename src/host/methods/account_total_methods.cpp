#include "host/methods/account_total_methods.h"

#include "host/methods/debt_query.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"
#include "host/storage/money.h"

#include <QMap>

namespace orvo::host {

namespace {

const QString kBaseCode = QStringLiteral("   ");

qint64 centsOf(const Value& v) {
    return v.isNull() ? 0 : Money::CentsFromValue(v);
}

QString accountColumn(int side) {
    return side == 1 ? QStringLiteral("AccountD") : QStringLiteral("AccountC");
}

QString sideCondition(const QString& alias, int side) {
    return alias + (side == 1 ? QStringLiteral(".Sign = 1") : QStringLiteral(".Sign <> 1"));
}

// The condition that an entry carries the addressee on the side, with its parameters; empty
// when every entry counts.
QString addresseeCondition(const QString& addressee, int side, ValueArray& params) {
    if (addressee.size() < 8)
        return {};
    QString cond = QStringLiteral(" AND EXISTS (SELECT 1 FROM BRProperties p WHERE p.BRID = "
                                  "b.ID AND ") +
                   sideCondition(QStringLiteral("p"), side);
    if (addressee.size() == 8) {
        const QPair<QString, QString> kind = DebtQuery::KindRange(addressee);
        cond += QStringLiteral(" AND p.FOIDR >= ? AND p.FOIDR < ?)");
        params << Value(kind.first) << Value(kind.second);
    } else {
        cond += QStringLiteral(" AND p.FOIDR = ?)");
        params << Value(addressee);
    }
    return cond;
}

FieldDefs accountTotalFields() {
    return {TextField("Account", 20),
            TextField("FCurrencyCode", 3),
            TypedField("SumD", FieldType::Double),
            TypedField("SumC", FieldType::Double),
            TypedField("RestLt", FieldType::Double),
            TypedField("SumCurrD", FieldType::Double),
            TypedField("SumCurrC", FieldType::Double),
            TypedField("RestCurr", FieldType::Double)};
}

MethodDefinition accountTotal() {
    MethodDefinition m;
    m.name = QStringLiteral("GetAccountTotal");
    m.parameters = {
        ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("Addressee"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("Date"), ParameterKind::Date),
        ParameterSpec::Optional(QStringLiteral("Sign"), ParameterKind::Integer, Value(1))};
    m.fields = accountTotalFields();
    m.doc = QStringLiteral(
        "The balance of the account at the date, one row per currency its entries bear on the "
        "account's side (three blanks for the base currency; an entry whose side names a "
        "currency without a currency sum, such as a rate change, counts under that currency): "
        "Account, FCurrencyCode, SumD and SumC (debit and credit turnover to the date, in "
        "base), RestLt, SumCurrD and SumCurrC (in the currency), RestCurr. The rests are "
        "debit less credit for sign 1 (or 0) and credit less debit for sign -1, so that a "
        "balance on the asked side is positive. Rows by currency code.");
    m.handler = [name = m.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString account = args.Text(QStringLiteral("Account")).trimmed();
        const QString addressee = args.Text(QStringLiteral("Addressee")).trimmed();
        const QDate date = args.Date(QStringLiteral("Date"));
        const int direction = args.Integer(QStringLiteral("Sign")) < 0 ? -1 : 1;
        struct Sums {
            qint64 d = 0, c = 0, currD = 0, currC = 0;
        };
        QMap<QString, Sums> byCode;
        for (const int side : {1, -1}) {
            ValueArray params{Value(account), Value(date)};
            const QString sql =
                QStringLiteral("SELECT k.FCurrencyCode, SUM(b.SumA), SUM(k.SumCurr) FROM BR b "
                               "LEFT JOIN BRCurrency k ON k.BRID = b.ID AND ") +
                sideCondition(QStringLiteral("k"), side) + QStringLiteral(" WHERE b.") +
                accountColumn(side) + QStringLiteral(" = ? AND b.DateD <= ?") +
                addresseeCondition(addressee, side, params) +
                QStringLiteral(" GROUP BY k.FCurrencyCode");
            const QueryResult q = ctx.database->Query(sql, params);
            if (!q.ok())
                return BOResult::Failure(q.Code, q.Text);
            for (int i = 0; i < q.RowCount(); ++i) {
                const QString raw = q.At(i, 0).isNull() ? QString() : q.At(i, 0).toString();
                const QString code = raw.trimmed().isEmpty() ? kBaseCode : raw.trimmed();
                Sums& s = byCode[code];
                (side == 1 ? s.d : s.c) += centsOf(q.At(i, 1));
                if (code != kBaseCode)
                    (side == 1 ? s.currD : s.currC) += centsOf(q.At(i, 2));
            }
        }
        RecordsetPtr rs = Recordset::Create(accountTotalFields());
        for (auto it = byCode.cbegin(); it != byCode.cend(); ++it) {
            const Sums& s = it.value();
            rs->AddNew();
            rs->SetField(0, account);
            rs->SetField(1, it.key());
            rs->SetField(2, Money::FromCents(s.d));
            rs->SetField(3, Money::FromCents(s.c));
            rs->SetField(4, Money::FromCents(direction * (s.d - s.c)));
            rs->SetField(5, Money::FromCents(s.currD));
            rs->SetField(6, Money::FromCents(s.currC));
            rs->SetField(7, Money::FromCents(direction * (s.currD - s.currC)));
            rs->Update();
        }
        rs->AcceptChanges();
        rs->MoveFirst();
        return BOResult::Of(Value(rs));
    };
    return m;
}

FieldDefs accountsTotalFields() {
    return {TextField("Account", 20), TypedField("SumD", FieldType::Double),
            TypedField("SumC", FieldType::Double), TypedField("SumA", FieldType::Double),
            TextField("AccType", 1)};
}

// Debit and credit turnover of every account up to the date, from the per-day totals the
// database keeps (see account_totals_schema.h): a few rows per account and day, whatever
// the number of entries.
ResultRecord turnoverFromTotals(Database& db, const QDate& date,
                                QMap<QString, QPair<qint64, qint64>>& totals) {
    const QueryResult q = db.Query(QStringLiteral("SELECT Account, SUM(SumD), SUM(SumC) FROM "
                                                  "BRAccountTotals WHERE DateD <= ? "
                                                  "GROUP BY Account"),
                                   {Value(date)});
    if (!q.ok())
        return ResultRecord::Failure(q.Code, q.Text);
    for (int i = 0; i < q.RowCount(); ++i) {
        const QString account = q.At(i, 0).toString().trimmed();
        if (account.isEmpty())
            continue;
        QPair<qint64, qint64>& t = totals[account];
        t.first += centsOf(q.At(i, 1));
        t.second += centsOf(q.At(i, 2));
    }
    return ResultRecord::Success();
}

// The same turnover counted from the entries that carry the addressee on the account's side,
// which no stored total can answer.
ResultRecord turnoverFromEntries(Database& db, const QDate& date, const QString& addressee,
                                 QMap<QString, QPair<qint64, qint64>>& totals) {
    for (const int side : {1, -1}) {
        ValueArray params{Value(date)};
        const QString column = QStringLiteral("b.") + accountColumn(side);
        const QString sql = QStringLiteral("SELECT ") + column +
                            QStringLiteral(", SUM(b.SumA) FROM BR b WHERE b.DateD <= ?") +
                            addresseeCondition(addressee, side, params) +
                            QStringLiteral(" GROUP BY ") + column;
        const QueryResult q = db.Query(sql, params);
        if (!q.ok())
            return ResultRecord::Failure(q.Code, q.Text);
        for (int i = 0; i < q.RowCount(); ++i) {
            const QString account = q.At(i, 0).toString().trimmed();
            if (account.isEmpty())
                continue;
            QPair<qint64, qint64>& t = totals[account];
            (side == 1 ? t.first : t.second) += centsOf(q.At(i, 1));
        }
    }
    return ResultRecord::Success();
}

MethodDefinition accountsTotal() {
    MethodDefinition m;
    m.name = QStringLiteral("GetAccountsTotal");
    m.parameters = {ParameterSpec::Required(QStringLiteral("Date"), ParameterKind::Date),
                    ParameterSpec::Optional(QStringLiteral("Addressee"), ParameterKind::Text,
                                            Value(QString()))};
    m.fields = accountsTotalFields();
    m.doc = QStringLiteral(
        "Every account with entries dated on or before the date, by account: SumD and SumC "
        "(the debit and credit turnover up to the date), SumA (the balance, never below "
        "zero) and AccType (D when the balance stands on the debit side or is zero, K when "
        "on the credit side), so that a closing can post SumA to the side that empties the "
        "account. An addressee counts only the entries that carry it on the account's side.");
    m.handler = [name = m.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QDate date = args.Date(QStringLiteral("Date"));
        const QString addressee = args.Text(QStringLiteral("Addressee")).trimmed();
        QMap<QString, QPair<qint64, qint64>> totals;
        const ResultRecord read = addressee.size() < 8
                                      ? turnoverFromTotals(*ctx.database, date, totals)
                                      : turnoverFromEntries(*ctx.database, date, addressee, totals);
        if (!read.ok())
            return BOResult::Failure(read.Code, read.Text);
        RecordsetPtr rs = Recordset::Create(accountsTotalFields());
        for (auto it = totals.cbegin(); it != totals.cend(); ++it) {
            const qint64 balance = it.value().first - it.value().second;
            rs->AddNew();
            rs->SetField(0, it.key());
            rs->SetField(1, Money::FromCents(it.value().first));
            rs->SetField(2, Money::FromCents(it.value().second));
            rs->SetField(3, Money::FromCents(balance < 0 ? -balance : balance));
            rs->SetField(4, balance < 0 ? QStringLiteral("K") : QStringLiteral("D"));
            rs->Update();
        }
        rs->AcceptChanges();
        rs->MoveFirst();
        return BOResult::Of(Value(rs));
    };
    return m;
}

} // namespace

ResultRecord RegisterAccountTotalMethods(MethodRegistry& methods) {
    for (const MethodDefinition& m : {accountTotal(), accountsTotal()}) {
        const ResultRecord r = methods.Register(m);
        if (!r.ok())
            return r;
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
