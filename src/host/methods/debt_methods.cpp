#include "host/methods/debt_methods.h"

#include "host/methods/account_total_methods.h"
#include "host/methods/covers_in_future_methods.h"
#include "host/methods/currency_revaluation_methods.h"
#include "host/methods/debt_query.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"
#include "host/storage/money.h"

#include <QHash>
#include <QSet>
#include <algorithm>
#include <cmath>

namespace orvo::host {

namespace {

const QString kEntryKind = QStringLiteral("O0201500");
const QString kFirmKind = QStringLiteral("O0000100");

BOResult failed(const QueryResult& q) {
    return BOResult::Failure(q.Code == 0 ? 1 : q.Code, q.Text);
}

RecordsetPtr finished(const RecordsetPtr& rs) {
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

// ---- the debt lists ---------------------------------------------------------------

FieldDefs debtFields() {
    return {TextField("OIDR", 50),
            TypedField("DateD", FieldType::Date),
            TextField("Number", 50),
            TextField("Comment", 1000),
            TextField("FOIDR", 50),
            TextField("AccountD", 20),
            TextField("AccountC", 20),
            TypedField("FullSum", FieldType::Double),
            TypedField("FullSumCurr", FieldType::Double),
            TypedField("LikutisLt", FieldType::Double),
            TypedField("LikutisCurr", FieldType::Double),
            TextField("FCurrencyCode", 3),
            TypedField("RateCurr", FieldType::Double),
            TypedField("CurrencyRate", FieldType::Double),
            TypedField("CurrentRate", FieldType::Double),
            TypedField("CurrInfluence", FieldType::Double),
            TypedField("InfluenceSign", FieldType::SmallInt)};
}

// The rate as the currency is quoted: what the entry keeps beside its rate, else, under a
// euro base, foreign units per euro, else the rate itself.
double quotedRate(const DebtRow& d, const QString& baseCurrency) {
    if (d.StoredCurrencyRate > 0)
        return d.StoredCurrencyRate;
    if (d.RateCurr <= 0)
        return 0;
    if (baseCurrency == QLatin1String("EUR"))
        return std::round(1e6 / d.RateCurr) / 1e6;
    return d.RateCurr;
}

// The rows' texts are moved into the recordset: a long list has a hundred thousand rows.
RecordsetPtr debtRecordset(QVector<DebtRow>&& rows, const QString& baseCurrency) {
    RecordsetPtr rs = Recordset::Create(debtFields());
    const int fields = rs->FieldCount();
    for (DebtRow& d : rows) {
        // Built in place: a braced list would copy every value once more.
        ValueArray v;
        v.reserve(fields);
        v.emplaceBack(DebtQuery::EntryReference(d.EntryId));
        v.emplaceBack(d.DateD);
        v.emplaceBack(std::move(d.Number));
        v.emplaceBack(std::move(d.Comment));
        v.emplaceBack(std::move(d.FOIDR));
        v.emplaceBack(std::move(d.AccountD));
        v.emplaceBack(std::move(d.AccountC));
        v.emplaceBack(Money::FromCents(d.FullCents));
        v.emplaceBack(Money::FromCents(d.FullCurrCents));
        v.emplaceBack(Money::FromCents(d.RestCents));
        v.emplaceBack(Money::FromCents(d.RestCurrCents));
        v.emplaceBack(std::move(d.CurrencyCode));
        v.emplaceBack(d.RateCurr);
        v.emplaceBack(quotedRate(d, baseCurrency));
        v.emplaceBack(0.0);
        v.emplaceBack(0.0);
        v.emplaceBack(qint16(d.Sign));
        rs->AppendStored(std::move(v));
    }
    rs->MoveFirst();
    return rs;
}

QVector<ParameterSpec> debtParameters() {
    return {
        ParameterSpec::Required(QStringLiteral("Kind"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("Date"), ParameterKind::Date),
        ParameterSpec::Optional(QStringLiteral("Addressee"), ParameterKind::Text, Value(QString())),
        ParameterSpec::Optional(QStringLiteral("Sign"), ParameterKind::Integer, Value(0)),
        ParameterSpec::Optional(QStringLiteral("WithBranches"), ParameterKind::Integer, Value(0))};
}

// One debt list method; `forcedSign` 0 takes the sign of the text.
MethodDefinition debtsMethod(const char* name, int forcedSign, const QString& what) {
    MethodDefinition m;
    m.name = QString::fromLatin1(name);
    m.parameters = debtParameters();
    m.fields = debtFields();
    m.doc =
        what +
        QStringLiteral(
            " Parameters: '0', the account, the date, the addressee (shorter than 8 characters: "
            "any or none; 8: a whole kind; longer: one), the sign (1 debit debts, -1 credit, 0 "
            "both) and an optional 1 for a firm with its branches (firms whose ParentID is "
            "it). One row per debt entry with a rest at the date, by date: OIDR of the entry, "
            "its DateD, the operation's Number, Comment (the entry's text, else the "
            "operation's comment), the addressee FOIDR, the accounts, FullSum and FullSumCurr "
            "(the entry), LikutisLt and LikutisCurr (the rest in base and in the debt's "
            "currency: payments on the opposite side referring to the entry reduce it, "
            "rate-change entries on the same side add to it), FCurrencyCode (three blanks for "
            "base), RateCurr (the entry's rate), CurrencyRate (as quoted), CurrentRate and "
            "CurrInfluence 0 (the window fills them), InfluenceSign 1 for a debit rest, -1 "
            "for a credit rest.");
    m.handler = [name = m.name, forcedSign](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        DebtSelection s;
        s.Account = args.Text(QStringLiteral("Account")).trimmed();
        s.Date = args.Date(QStringLiteral("Date"));
        s.Addressee = args.Text(QStringLiteral("Addressee")).trimmed();
        const int sign = args.Integer(QStringLiteral("Sign"));
        s.Sign = forcedSign != 0 ? forcedSign : (sign > 0 ? 1 : (sign < 0 ? -1 : 0));
        s.WithBranches = args.Integer(QStringLiteral("WithBranches")) == 1;
        DebtList list = DebtQuery(*ctx.database).Open(s);
        if (!list.ok())
            return BOResult::Failure(list.Code, list.Text);
        return BOResult::Of(Value(debtRecordset(std::move(list.Rows), ctx.baseCurrency)));
    };
    return m;
}

// ---- the addressees of a cover ------------------------------------------------------

MethodDefinition coverFirms() {
    MethodDefinition m;
    m.name = QStringLiteral("GetCoverFirms");
    m.parameters = {
        ParameterSpec::Required(QStringLiteral("Date"), ParameterKind::Date),
        ParameterSpec::Required(QStringLiteral("CreditAccount"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("DebitAccount"), ParameterKind::Text),
        ParameterSpec::Optional(QStringLiteral("Kind"), ParameterKind::Text, Value(kFirmKind))};
    m.fields = {TextField("ShowString", 800), TextField("FOIDR", 50)};
    m.doc = QStringLiteral(
        "The addressees of a kind (O0000100 when left empty) that at the date have both an "
        "open debit debt on the debit account and an open credit debt on the credit account, "
        "so that one can be set off against the other: ShowString (the text of the "
        "addressee's latest debt row) and FOIDR, by ShowString.");
    m.handler = [name = m.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        QString kind = args.Text(QStringLiteral("Kind")).trimmed();
        if (kind.isEmpty())
            kind = kFirmKind;
        DebtSelection debit;
        debit.Account = args.Text(QStringLiteral("DebitAccount")).trimmed();
        debit.Date = args.Date(QStringLiteral("Date"));
        debit.Addressee = kind;
        debit.Sign = 1;
        DebtSelection credit = debit;
        credit.Account = args.Text(QStringLiteral("CreditAccount")).trimmed();
        credit.Sign = -1;
        DebtQuery query(*ctx.database);
        const DebtList debits = query.Open(debit);
        if (!debits.ok())
            return BOResult::Failure(debits.Code, debits.Text);
        const DebtList credits = query.Open(credit);
        if (!credits.ok())
            return BOResult::Failure(credits.Code, credits.Text);
        QSet<QString> onCredit;
        for (const DebtRow& d : credits.Rows)
            onCredit.insert(d.FOIDR);
        // The latest row of each addressee names it.
        QHash<QString, QString> shown;
        for (const DebtRow& d : debits.Rows)
            if (!d.FOIDR.isEmpty() && onCredit.contains(d.FOIDR))
                shown.insert(d.FOIDR, d.ShowString.isEmpty() ? d.FOIDR : d.ShowString);
        QVector<QPair<QString, QString>> rows;
        for (auto it = shown.cbegin(); it != shown.cend(); ++it)
            rows.append({it.value(), it.key()});
        std::sort(rows.begin(), rows.end());
        RecordsetPtr rs = Recordset::Create({TextField("ShowString", 800), TextField("FOIDR", 50)});
        for (const auto& r : rows) {
            rs->AddNew();
            rs->SetField(0, r.first.left(800));
            rs->SetField(1, r.second);
            rs->Update();
        }
        return BOResult::Of(Value(finished(rs)));
    };
    return m;
}

MethodDefinition propertiesByAccount() {
    MethodDefinition m;
    m.name = QStringLiteral("GetBRPropertiesByAcc");
    m.parameters = {
        ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("Addressee"), ParameterKind::Text),
        ParameterSpec::Optional(QStringLiteral("Sign"), ParameterKind::Integer, Value(0))};
    m.fields = {TextField("FOIDR", 50), TextField("ShowString", 800),
                TypedField("Sign", FieldType::SmallInt)};
    m.doc = QStringLiteral(
        "The addressee rows that entries of the account carry together with the addressee on "
        "the side (1 debit, -1 credit, 0 either), so that a new entry of that account and "
        "addressee can carry them too: the addressee itself first, then each other addressee "
        "once (a bank account, an employee ...), with the text of its latest entry. "
        "References to entries are left out. An addressee without entries gives its own row "
        "alone.");
    m.handler = [name = m.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString account = args.Text(QStringLiteral("Account")).trimmed();
        const QString addressee = args.Text(QStringLiteral("Addressee")).trimmed();
        const int sign = args.Integer(QStringLiteral("Sign"));
        RecordsetPtr rs = Recordset::Create({TextField("FOIDR", 50), TextField("ShowString", 800),
                                             TypedField("Sign", FieldType::SmallInt)});
        if (addressee.size() < 9)
            return BOResult::Of(Value(finished(rs)));
        const QPair<QString, QString> refs = DebtQuery::KindRange(kEntryKind);
        QVector<QPair<QString, int>> order;
        QHash<QString, QString> shown;
        for (const int side : {1, -1}) {
            if (sign != 0 && (sign > 0 ? 1 : -1) != side)
                continue;
            const QString cond = side == 1 ? QStringLiteral(" = 1") : QStringLiteral(" <> 1");
            const QueryResult q = ctx.database->Query(
                QStringLiteral("SELECT q.FOIDR, q.ShowString FROM BRProperties p JOIN BR b ON "
                               "b.ID = p.BRID JOIN BRProperties q ON q.BRID = b.ID AND q.Sign") +
                    cond + QStringLiteral(" WHERE p.FOIDR = ? AND p.Sign") + cond +
                    QStringLiteral(" AND b.") +
                    (side == 1 ? QStringLiteral("AccountD") : QStringLiteral("AccountC")) +
                    QStringLiteral(" = ? AND NOT (q.FOIDR >= ? AND q.FOIDR < ?) ORDER BY "
                                   "b.DateD DESC, b.ID DESC, q.ID"),
                {Value(addressee), Value(account), Value(refs.first), Value(refs.second)});
            if (!q.ok())
                return failed(q);
            for (int i = 0; i < q.RowCount(); ++i) {
                const QString foidr = q.At(i, 0).toString();
                if (foidr.isEmpty() || shown.contains(foidr + QString::number(side)))
                    continue;
                shown.insert(foidr + QString::number(side), q.At(i, 1).toString());
                order.append({foidr, side});
            }
        }
        // The addressee first, on each side it was asked for.
        std::stable_sort(order.begin(), order.end(),
                         [&](const QPair<QString, int>& a, const QPair<QString, int>& b) {
                             return (a.first == addressee) > (b.first == addressee);
                         });
        if (order.isEmpty()) {
            const QueryResult q = ctx.database->Query(
                QStringLiteral("SELECT ShowString FROM BRProperties WHERE FOIDR = ? ORDER BY ID "
                               "DESC LIMIT 1"),
                {Value(addressee)});
            if (!q.ok())
                return failed(q);
            const QString ownText = q.RowCount() > 0 ? q.Scalar().toString() : addressee;
            for (const int side : {1, -1}) {
                if (sign != 0 && (sign > 0 ? 1 : -1) != side)
                    continue;
                shown.insert(addressee + QString::number(side), ownText);
                order.append({addressee, side});
            }
        }
        for (const auto& o : order) {
            rs->AddNew();
            rs->SetField(0, o.first);
            rs->SetField(1, shown.value(o.first + QString::number(o.second)).left(800));
            rs->SetField(2, Value(qint16(o.second)));
            rs->Update();
        }
        return BOResult::Of(Value(finished(rs)));
    };
    return m;
}

// ---- the revaluation variants ---------------------------------------------------------

MethodDefinition checkInfluenceType() {
    MethodDefinition m;
    m.name = QStringLiteral("GetCheckInfluenceType");
    m.parameters = {
        ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("IncomeAccount"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("ExpenseAccount"), ParameterKind::Text),
        ParameterSpec::Optional(QStringLiteral("Variant"), ParameterKind::Integer, Value(0))};
    m.fields = {TextField("OIDR", 50),     TypedField("DateD", FieldType::Date),
                TextField("Number", 50),   TextField("AccountD", 20),
                TextField("AccountC", 20), TypedField("SumA", FieldType::Double),
                TextField("Comment", 1000)};
    m.doc = QStringLiteral(
        "Earlier rate-change entries of the account (debit the account and credit the income "
        "account, or debit the expense account and credit the account) made by the other "
        "revaluation variant: for variant 0 (by operations) those that refer to no entry, "
        "made from the account's balance; for variant 1 (by balance) those that refer to an "
        "entry, made debt by debt. Rows OIDR of the operation, DateD, Number, AccountD, "
        "AccountC, SumA, Comment, by date; none means no conflict.");
    m.handler = [name = m.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString account = args.Text(QStringLiteral("Account")).trimmed();
        const QString income = args.Text(QStringLiteral("IncomeAccount")).trimmed();
        const QString expense = args.Text(QStringLiteral("ExpenseAccount")).trimmed();
        const bool byBalance = args.Integer(QStringLiteral("Variant")) == 1;
        const QPair<QString, QString> refs = DebtQuery::KindRange(kEntryKind);
        // Each half goes through the debit account's index.
        const QString sql =
            QStringLiteral("SELECT b.BROperID, b.DateD, o.Number, b.AccountD, b.AccountC, b.SumA, "
                           "o.Comment, b.ID FROM BR b JOIN BROpers o ON o.ID = b.BROperID WHERE "
                           "b.AccountD = ? AND b.AccountC = ? AND ") +
            (byBalance ? QStringLiteral("") : QStringLiteral("NOT ")) +
            QStringLiteral("EXISTS (SELECT 1 FROM BRProperties x WHERE x.BRID = b.ID AND "
                           "x.FOIDR >= ? AND x.FOIDR < ?)");
        RecordsetPtr rs = Recordset::Create(
            {TextField("OIDR", 50), TypedField("DateD", FieldType::Date), TextField("Number", 50),
             TextField("AccountD", 20), TextField("AccountC", 20),
             TypedField("SumA", FieldType::Double), TextField("Comment", 1000)});
        struct Row {
            QDate date;
            qint64 id;
            ValueArray values;
        };
        QVector<Row> rows;
        for (const auto& pair : {qMakePair(account, income), qMakePair(expense, account)}) {
            const QueryResult q = ctx.database->Query(sql, {Value(pair.first), Value(pair.second),
                                                            Value(refs.first), Value(refs.second)});
            if (!q.ok())
                return failed(q);
            for (int i = 0; i < q.RowCount(); ++i)
                rows.append({q.At(i, 1).toDate(), static_cast<qint64>(q.At(i, 7).toDouble()),
                             q.Rows.at(i)});
        }
        std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
            return a.date != b.date ? a.date < b.date : a.id < b.id;
        });
        for (const Row& r : rows) {
            rs->AddNew();
            rs->SetField(0,
                         DebtQuery::EntryReference(static_cast<qint64>(r.values.at(0).toDouble())));
            rs->SetField(1, r.values.at(1));
            rs->SetField(2, r.values.at(2).toString());
            rs->SetField(3, r.values.at(3).toString());
            rs->SetField(4, r.values.at(4).toString());
            rs->SetField(5, Money::AmountFromValue(r.values.at(5)));
            rs->SetField(6, r.values.at(6).toString());
            rs->Update();
        }
        return BOResult::Of(Value(finished(rs)));
    };
    return m;
}

// ---- the selection window ---------------------------------------------------------------

MethodDefinition selectParameters() {
    MethodDefinition m;
    m.name = QStringLiteral("GetSelectParameters");
    m.fields = {TextField("OIDR", 50),
                TextField("FOIDR", 50),
                TypedField("DateD", FieldType::Date),
                TextField("Comment", 1000),
                TextField("Info", 1000),
                TypedField("PaymentSum", FieldType::Double),
                TypedField("PaymentSumCurr", FieldType::Double),
                TextField("PaymentCurrCode", 3),
                TypedField("PaymentCurrRate", FieldType::Double),
                TextField("AccountD", 20),
                TextField("AccountC", 20)};
    m.doc = QStringLiteral("An empty recordset of the fields that open the selection window on "
                           "an entry: the operation's OIDR, the addressee, the date, texts, the "
                           "payment and the debt account on its side.");
    m.handler = [fields = m.fields](MethodContext&, const MethodArguments&) {
        return BOResult::Of(Value(finished(Recordset::Create(fields))));
    };
    return m;
}

MethodDefinition operationsByNumber() {
    MethodDefinition m;
    m.name = QStringLiteral("DO0201500_GetBROpersByNumber");
    m.parameters = {
        ParameterSpec::Required(QStringLiteral("Number"), ParameterKind::Text),
        ParameterSpec::Optional(QStringLiteral("BROperGroupID"), ParameterKind::Integer, Value(0))};
    m.fields = {TextField("ClientName", 800), TextField("FOIDR", 50), TextField("OIDR", 50),
                TypedField("DateD", FieldType::Date), TextField("Number", 50)};
    m.doc = QStringLiteral(
        "The clients (firms, natural persons, employees) that stand as addressees on the "
        "entries of operations bearing the document number, in that group when a group is "
        "given (0: every group); one row per client, by the operation's date: ClientName "
        "(the firm's name, else the addressee's text), FOIDR, and the OIDR, DateD and Number "
        "of the first such operation.");
    m.handler = [name = m.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        const QString number = args.Text(QStringLiteral("Number")).trimmed();
        const qint32 group = args.Integer(QStringLiteral("BROperGroupID"));
        ValueArray params{Value(number)};
        QString sql = QStringLiteral("SELECT o.ID, o.DateD, o.Number, p.FOIDR, p.ShowString FROM "
                                     "BROpers o JOIN BR b ON b.BROperID = o.ID JOIN "
                                     "BRProperties p ON p.BRID = b.ID WHERE o.Number = ?");
        if (group > 0) {
            sql += QStringLiteral(" AND o.BROperGroupID = ?");
            params << Value(group);
        }
        sql += QStringLiteral(" ORDER BY o.DateD, o.ID, b.ID, p.ID");
        const QueryResult q = ctx.database->Query(sql, params);
        if (!q.ok())
            return failed(q);
        QVector<int> picked;
        QSet<QString> seen;
        ValueArray firms;
        for (int i = 0; i < q.RowCount(); ++i) {
            const QString foidr = q.At(i, 3).toString();
            const QString kind = foidr.left(8);
            if (kind != kFirmKind && kind != QLatin1String("O0001401") &&
                kind != QLatin1String("O0001402"))
                continue;
            if (foidr.size() < 9 || seen.contains(foidr))
                continue;
            seen.insert(foidr);
            picked << i;
            if (kind == kFirmKind)
                firms << Value(foidr.mid(8).toDouble());
        }
        // A firm is named by the catalogue, as it stands today.
        QHash<QString, QString> firmNames;
        if (!firms.isEmpty()) {
            QStringList marks;
            for (int i = 0; i < firms.size(); ++i)
                marks << QStringLiteral("?");
            const QueryResult f =
                ctx.database->Query(QStringLiteral("SELECT ID, Name FROM Firms WHERE ID IN (") +
                                        marks.join(QStringLiteral(", ")) + QLatin1Char(')'),
                                    firms);
            if (!f.ok())
                return failed(f);
            for (int i = 0; i < f.RowCount(); ++i)
                firmNames.insert(kFirmKind +
                                     QString::number(static_cast<qint64>(f.At(i, 0).toDouble())),
                                 f.At(i, 1).toString());
        }
        RecordsetPtr rs = Recordset::Create(
            {TextField("ClientName", 800), TextField("FOIDR", 50), TextField("OIDR", 50),
             TypedField("DateD", FieldType::Date), TextField("Number", 50)});
        for (const int i : picked) {
            const QString foidr = q.At(i, 3).toString();
            const QString firmName = firmNames.value(foidr);
            rs->AddNew();
            rs->SetField(0, (firmName.isEmpty() ? q.At(i, 4).toString() : firmName).left(800));
            rs->SetField(1, foidr);
            rs->SetField(2, DebtQuery::EntryReference(static_cast<qint64>(q.At(i, 0).toDouble())));
            rs->SetField(3, q.At(i, 1));
            rs->SetField(4, q.At(i, 2).toString());
            rs->Update();
        }
        return BOResult::Of(Value(finished(rs)));
    };
    return m;
}

} // namespace

ResultRecord RegisterDebtMethods(MethodRegistry& methods) {
    const QVector<MethodDefinition> defs = {
        debtsMethod("GetDebts1", 0,
                    QStringLiteral("The open debts of one addressee on the account.")),
        debtsMethod("GetDebts2", 0,
                    QStringLiteral("The open debts of every addressee of a kind on the account.")),
        debtsMethod("GetDebts3", 0,
                    QStringLiteral("The open debts of the account whatever their addressee.")),
        debtsMethod("GetDebtsByDebit", 1,
                    QStringLiteral("The open debit debts of the account (the sign is taken as "
                                   "1).")),
        debtsMethod("GetDebtsByCredit", -1,
                    QStringLiteral("The open credit debts of the account (the sign is taken as "
                                   "-1).")),
        debtsMethod("GetDebts1New", 0,
                    QStringLiteral("The open debts, read as GetDebts1 reads them.")),
        coverFirms(),
        propertiesByAccount(),
        checkInfluenceType(),
        selectParameters(),
        operationsByNumber(),
    };
    for (const MethodDefinition& m : defs) {
        const ResultRecord r = methods.Register(m);
        if (!r.ok())
            return r;
    }
    for (const ResultRecord& r :
         {RegisterAccountTotalMethods(methods), RegisterCoversInFutureMethods(methods),
          RegisterCurrencyRevaluationMethods(methods)})
        if (!r.ok())
            return r;
    return ResultRecord::Success();
}

} // namespace orvo::host
