// The fixture of the tests of currency revaluation and exchange: a demo book (euro base,
// the pound and the dollar with daily rates, the chart with the rate-change roles 536
// on 5803 and 636 on 6803, the firm's own bank accounts) on SQLite or on a PostgreSQL
// database of the test's own, a session with the classes registered, and helpers that
// store operations through the operation object's own commands, fix a rate of a day,
// and read back the entries with their currency and addressee rows, in memory and as
// stored.
#pragma once

#include "demo_book_session.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "host/session/scripted_messages.h"

namespace orvo::test {

class CurrencyBook : public DemoBookSession {
protected:
    // A day well inside the demo rates, which end on the day the book is made.
    static QDate Day(int daysBack) { return Today().addDays(-daysBack); }

    qint32 GeneralGroup() {
        const host::QueryResult q =
            session_->Db().Query(QStringLiteral("SELECT ID FROM BROperGroups WHERE Name = ?"),
                                 {Value(QStringLiteral("Bendrosios operacijos"))});
        EXPECT_TRUE(q.ok() && q.RowCount() == 1);
        return q.ok() && q.RowCount() > 0 ? static_cast<qint32>(q.Scalar().toDouble()) : 0;
    }

    // A new operation of the general group, dated `date`.
    OrvoObjectUIOPtr NewOperation(const QDate& date) {
        const OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
        EXPECT_TRUE(op);
        if (!op)
            return nullptr;
        op->SetField(QStringLiteral("BROperGroupID"), Value(GeneralGroup()));
        op->SetField(QStringLiteral("DateD"), Value(date));
        return op;
    }

    // The reference and name of the n-th firm of the book that is not the own firm.
    QPair<QString, QString> Firm(int n = 0) {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT ID, Name FROM Firms WHERE MyFirmFlag = 0 ORDER BY ID"));
        EXPECT_TRUE(q.ok() && q.RowCount() > n) << q.Text.toStdString();
        if (!q.ok() || q.RowCount() <= n)
            return {};
        return {QStringLiteral("O0000100") + QString::number(qint64(q.At(n, 0).toDouble())),
                q.At(n, 1).toString()};
    }

    // The rate of a currency on a day, base currency per unit.
    void SetRate(const QString& code, const QDate& date, double rate) {
        const BOResult r = session_->BO()->Call(QStringLiteral("SaveDayRate"),
                                                QStringLiteral("'%1','%2',%3")
                                                    .arg(code, DateParam(date))
                                                    .arg(QString::number(rate, 'g', 17)));
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    }

    // A stored operation with one entry in a foreign currency on one side: `sumCurr`
    // units at `rate` on the side of `sign` (1 debit, -1 credit), the addressee on that
    // side.
    QString BookCurrencyEntry(const QDate& date, const QString& number, const QString& debit,
                              const QString& credit, double sumCurr, const QString& code,
                              double rate, qint16 sign, const ValueArray& addressees) {
        const OrvoObjectUIOPtr op = NewOperation(date);
        if (!op)
            return QString();
        op->SetField(QStringLiteral("Number"), Value(number));
        const ValueResult added = op->Methods(
            QStringLiteral("AddBR"),
            {Value(debit), Value(credit), Value(sumCurr), Value(addressees), Value(sign),
             Value(code), Value(rate), Value(0.0), Value(QStringLiteral("   ")), Value(0.0)});
        EXPECT_EQ(added.Code, 0) << added.Text.toStdString();
        const ResultRecord saved = op->Save();
        EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
        return saved.ok() ? op->OIDR() : QString();
    }

    // The reference of the first entry of a stored operation.
    QString EntryOf(const QString& operation) {
        const host::QueryResult q =
            session_->Db().Query(QStringLiteral("SELECT ID FROM BR WHERE BROperID = ? ORDER BY ID"),
                                 {Value(operation.mid(8).toDouble())});
        EXPECT_TRUE(q.ok() && q.RowCount() > 0);
        return q.ok() && q.RowCount() > 0
                   ? QStringLiteral("O0201500") + QString::number(qint64(q.At(0, 0).toDouble()))
                   : QString();
    }

    static QString Amount(const Value& v) { return QString::number(NzDouble(v), 'f', 2); }
    // A stored amount is kept in hundredths.
    static QString StoredAmount(const Value& v) {
        return QString::number(double(qint64(NzDouble(v))) / 100.0, 'f', 2);
    }

    // The entries of an open operation: "debit|credit|sum|yyyy.mm.dd" each, followed by
    // its currency rows "  C sign|code|sumCurr|rate" and addressee rows
    // "  A sign|reference|text".
    static QStringList EntriesOf(const OrvoObjectUIOPtr& op) {
        QStringList out;
        const RecordsetPtr br = op->Field(QStringLiteral("BR")).toRecordset();
        if (!br)
            return out;
        for (br->MoveFirst(); !br->Eof(); br->MoveNext()) {
            out << NzString(br->Field(QStringLiteral("AccountD"))) + QLatin1Char('|') +
                       NzString(br->Field(QStringLiteral("AccountC"))) + QLatin1Char('|') +
                       Amount(br->Field(QStringLiteral("SumA"))) + QLatin1Char('|') +
                       DateParam(NzDate(br->Field(QStringLiteral("DateD")), QDate()));
            if (const RecordsetPtr c = br->Field(QStringLiteral("BRCurrency")).toRecordset())
                for (c->MoveFirst(); !c->Eof(); c->MoveNext())
                    out << QStringLiteral("  C ") +
                               QString::number(NzInt(c->Field(QStringLiteral("Sign")))) +
                               QLatin1Char('|') +
                               NzString(c->Field(QStringLiteral("FCurrencyCode"))) +
                               QLatin1Char('|') + Amount(c->Field(QStringLiteral("SumCurr"))) +
                               QLatin1Char('|') +
                               QString::number(NzDouble(c->Field(QStringLiteral("RateCurr"))), 'g',
                                               9);
            if (const RecordsetPtr p = br->Field(QStringLiteral("BRProperties")).toRecordset())
                for (p->MoveFirst(); !p->Eof(); p->MoveNext())
                    out << QStringLiteral("  A ") +
                               QString::number(NzInt(p->Field(QStringLiteral("Sign")))) +
                               QLatin1Char('|') + NzString(p->Field(QStringLiteral("FOIDR"))) +
                               QLatin1Char('|') + NzString(p->Field(QStringLiteral("ShowString")));
        }
        return out;
    }

    // The same lines read from the book for a stored operation.
    QStringList StoredEntries(const QString& operation) {
        QStringList out;
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT ID, AccountD, AccountC, SumA, DateD FROM BR WHERE BROperID = "
                           "? ORDER BY ID"),
            {Value(operation.mid(8).toDouble())});
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        for (int i = 0; q.ok() && i < q.RowCount(); ++i) {
            out << q.At(i, 1).toString() + QLatin1Char('|') + q.At(i, 2).toString() +
                       QLatin1Char('|') + StoredAmount(q.At(i, 3)) + QLatin1Char('|') +
                       DateParam(q.At(i, 4).toDate());
            const Value id = q.At(i, 0);
            const host::QueryResult c = session_->Db().Query(
                QStringLiteral("SELECT Sign, FCurrencyCode, SumCurr, RateCurr FROM BRCurrency "
                               "WHERE BRID = ? ORDER BY ID"),
                {id});
            for (int j = 0; c.ok() && j < c.RowCount(); ++j)
                out << QStringLiteral("  C ") + QString::number(c.At(j, 0).toInt32()) +
                           QLatin1Char('|') + c.At(j, 1).toString() + QLatin1Char('|') +
                           StoredAmount(c.At(j, 2)) + QLatin1Char('|') +
                           QString::number(NzDouble(c.At(j, 3)), 'g', 9);
            const host::QueryResult p = session_->Db().Query(
                QStringLiteral("SELECT Sign, FOIDR, ShowString FROM BRProperties WHERE BRID = ? "
                               "ORDER BY ID"),
                {id});
            for (int j = 0; p.ok() && j < p.RowCount(); ++j)
                out << QStringLiteral("  A ") + QString::number(p.At(j, 0).toInt32()) +
                           QLatin1Char('|') + p.At(j, 1).toString() + QLatin1Char('|') +
                           p.At(j, 2).toString();
        }
        return out;
    }

    // The texts of the boxes shown since the last call.
    QStringList Boxes() {
        QStringList texts;
        for (const host::RecordedMessage& m : session_->Messages()->Take())
            texts << m.Text;
        return texts;
    }
};

} // namespace orvo::test
