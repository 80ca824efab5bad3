#include "host/methods/covers_in_future_methods.h"

#include "core/null_readers.h"
#include "host/methods/debt_query.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"
#include "host/storage/money.h"

#include <QHash>
#include <algorithm>

namespace orvo::host {

namespace {

const QString kEntryKind = QStringLiteral("O0201500");
constexpr int kReferenceBatch = 400;

FieldDefs coverFields() {
    return {TextField("OIDR", 50),
            TextField("RelatedOIDR", 50),
            TypedField("DateD", FieldType::Date),
            TextField("Nr", 50),
            TextField("Number", 50),
            TextField("BRGUID", 38),
            TypedField("SumA", FieldType::Double),
            TextField("BRComment", 1000),
            TextField("MonthFrom", 7),
            TypedField("MonthCount", FieldType::Integer),
            TextField("Comment", 1000),
            TypedField("RelatedDateD", FieldType::Date),
            TypedField("BRDate", FieldType::Date),
            TypedField("BRSumA", FieldType::Double),
            TextField("AccountD", 20),
            TextField("AccountC", 20)};
}

struct Deferred {
    qint64 id = 0;
    QDate date;
    QString guid;
    qint64 cents = 0;
    QString info;
    QString number;
    QString comment;
};

struct Writeoff {
    qint64 operationId = 0;
    QDate operationDate;
    QString operationNumber;
    QDate date;
    qint64 cents = 0;
    QString accountD;
    QString accountC;
};

MethodDefinition coversInFuture() {
    MethodDefinition m;
    m.name = QStringLiteral("GetCoversInFuture");
    m.parameters = {
        ParameterSpec::Required(QStringLiteral("DateFrom"), ParameterKind::Date),
        ParameterSpec::Required(QStringLiteral("DateTo"), ParameterKind::Date),
        ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
        ParameterSpec::Optional(QStringLiteral("Side"), ParameterKind::Integer, Value(1)),
        ParameterSpec::Optional(QStringLiteral("OnlyNotCovered"), ParameterKind::Integer,
                                Value(0))};
    m.fields = coverFields();
    m.doc = QStringLiteral(
        "The entries of the account on the side (1 debit: deferred expense; 0 or -1 credit: "
        "deferred income) dated from DateFrom to DateTo, by date, each followed by the "
        "entries that write it off (entries referring to it). One row per write-off, or one "
        "row with an empty RelatedOIDR for an entry not yet written off: OIDR (the deferred "
        "entry's reference), RelatedOIDR (the write-off operation), DateD, Number, Comment of "
        "the deferred entry's operation, BRGUID, SumA and BRComment of the entry itself, Nr "
        "and RelatedDateD (the write-off operation's number and date), BRDate, BRSumA, "
        "AccountD, AccountC (the write-off entry), MonthFrom (yyyy.mm of the first write-off) "
        "and MonthCount (how many write-offs), the period over which the entry is spread. "
        "With OnlyNotCovered 1 an entry whose write-offs reach its sum is left out.");
    m.handler = [name = m.name](MethodContext& ctx, const MethodArguments& args) {
        if (!ctx.database)
            return NoBookResult(name);
        Database& db = *ctx.database;
        const int side = args.Integer(QStringLiteral("Side")) == 1 ? 1 : -1;
        const bool onlyOpen = args.Integer(QStringLiteral("OnlyNotCovered")) != 0;
        const QPair<QString, QString> refs = DebtQuery::KindRange(kEntryKind);
        const QString cond = side == 1 ? QStringLiteral(" = 1") : QStringLiteral(" <> 1");
        const QueryResult entries = db.Query(
            QStringLiteral("SELECT b.ID, b.DateD, b.GUID, b.SumA, b.Info, o.Number, o.Comment "
                           "FROM BR b JOIN BROpers o ON o.ID = b.BROperID WHERE b.") +
                (side == 1 ? QStringLiteral("AccountD") : QStringLiteral("AccountC")) +
                QStringLiteral(" = ? AND b.DateD >= ? AND b.DateD <= ? AND NOT EXISTS (SELECT 1 "
                               "FROM BRProperties x WHERE x.BRID = b.ID AND x.Sign") +
                cond + QStringLiteral(" AND x.FOIDR >= ? AND x.FOIDR < ?) ORDER BY b.DateD, b.ID"),
            {Value(args.Text(QStringLiteral("Account")).trimmed()),
             Value(args.Date(QStringLiteral("DateFrom"))),
             Value(args.Date(QStringLiteral("DateTo"))), Value(refs.first), Value(refs.second)});
        if (!entries.ok())
            return BOResult::Failure(entries.Code, entries.Text);
        QVector<Deferred> deferred;
        for (int i = 0; i < entries.RowCount(); ++i) {
            Deferred d;
            d.id = NzId(entries.At(i, 0));
            d.date = entries.At(i, 1).toDate();
            d.guid = entries.At(i, 2).toString();
            d.cents = Money::CentsFromValue(entries.At(i, 3));
            d.info = entries.At(i, 4).toString();
            d.number = entries.At(i, 5).toString();
            d.comment = entries.At(i, 6).toString();
            deferred.append(d);
        }
        QHash<QString, QVector<Writeoff>> writeoffs;
        for (int from = 0; from < deferred.size(); from += kReferenceBatch) {
            const int count = std::min(kReferenceBatch, int(deferred.size()) - from);
            ValueArray params;
            QStringList marks;
            for (int i = 0; i < count; ++i) {
                params << Value(DebtQuery::EntryReference(deferred.at(from + i).id));
                marks << QStringLiteral("?");
            }
            const QueryResult q = db.Query(
                QStringLiteral("SELECT r.FOIDR, c.BROperID, o.DateD, o.Number, c.DateD, c.SumA, "
                               "c.AccountD, c.AccountC FROM BRProperties r JOIN BR c ON c.ID = "
                               "r.BRID JOIN BROpers o ON o.ID = c.BROperID WHERE r.FOIDR IN (") +
                    marks.join(QStringLiteral(", ")) +
                    QStringLiteral(") ORDER BY c.DateD, c.ID, r.ID"),
                params);
            if (!q.ok())
                return BOResult::Failure(q.Code, q.Text);
            for (int i = 0; i < q.RowCount(); ++i) {
                Writeoff w;
                w.operationId = NzId(q.At(i, 1));
                w.operationDate = q.At(i, 2).toDate();
                w.operationNumber = q.At(i, 3).toString();
                w.date = q.At(i, 4).toDate();
                w.cents = Money::CentsFromValue(q.At(i, 5));
                w.accountD = q.At(i, 6).toString();
                w.accountC = q.At(i, 7).toString();
                writeoffs[q.At(i, 0).toString()].append(w);
            }
        }
        RecordsetPtr rs = Recordset::Create(coverFields());
        for (const Deferred& d : deferred) {
            const QString ref = DebtQuery::EntryReference(d.id);
            const QVector<Writeoff> ws = writeoffs.value(ref);
            qint64 covered = 0;
            for (const Writeoff& w : ws)
                covered += w.cents;
            if (onlyOpen && d.cents > 0 && covered >= d.cents)
                continue;
            const QString monthFrom =
                ws.isEmpty() ? QString() : ws.first().date.toString(QStringLiteral("yyyy.MM"));
            auto row = [&](const Writeoff* w) {
                rs->AddNew();
                rs->SetField(0, ref);
                rs->SetField(1, w ? kEntryKind + QString::number(w->operationId) : QString());
                rs->SetField(2, Value(d.date));
                rs->SetField(3, w ? w->operationNumber : QString());
                rs->SetField(4, d.number);
                rs->SetField(5, d.guid);
                rs->SetField(6, Money::FromCents(d.cents));
                rs->SetField(7, d.info);
                rs->SetField(8, monthFrom);
                rs->SetField(9, Value(qint32(ws.size())));
                rs->SetField(10, d.comment);
                rs->SetField(11, w ? Value(w->operationDate) : Value());
                rs->SetField(12, w ? Value(w->date) : Value());
                rs->SetField(13, w ? Value(Money::FromCents(w->cents)) : Value());
                rs->SetField(14, w ? w->accountD : QString());
                rs->SetField(15, w ? w->accountC : QString());
                rs->Update();
            };
            if (ws.isEmpty())
                row(nullptr);
            for (const Writeoff& w : ws)
                row(&w);
        }
        rs->AcceptChanges();
        rs->MoveFirst();
        return BOResult::Of(Value(rs));
    };
    return m;
}

} // namespace

ResultRecord RegisterCoversInFutureMethods(MethodRegistry& methods) {
    return methods.Register(coversInFuture());
}

} // namespace orvo::host
