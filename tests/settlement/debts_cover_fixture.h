// The fixture of the debts cover tests: a demo book (chart with the rate-change accounts,
// firms, two years of rates, the demo debts) on each backend, a HostSession on it with
// the operation and account classes, and short ways to book a debt through the
// operation's own AddBR and Save, to read the entries an operation holds and the debts
// the business object reports.
#pragma once

#include "demo_book_session.h"
#include "fixed_today.h"

#include "core/dates.h"
#include "core/null_readers.h"
#include "core/rounding.h"
#include "frame/orvo_object_uio.h"
#include "host/session/scripted_messages.h"

#include <QVector>

namespace orvo::test {

class DebtsCoverBook : public DemoBookSession {
protected:
    OrvoObjectUIOPtr NewOperation() {
        return session_->Services()->ObjectsService()->GetObjectUIO(QStringLiteral("O0201500"));
    }

    // The reference of a demo firm by its name.
    QString Firm(const QString& name) {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT ID FROM Firms WHERE Name = ?"), {Value(name)});
        EXPECT_TRUE(q.ok() && q.RowCount() == 1) << name.toStdString();
        return q.ok() && q.RowCount() == 1
                   ? QStringLiteral("O0000100") + QString::number(qint64(q.Scalar().toDouble()))
                   : QString();
    }

    // Books one entry in an operation of its own through AddBR and Save; the reference
    // of the entry. A currency (with its rate, euros per unit) goes on the side of the
    // firm, `firmSign`.
    QString Book(const QDate& date, const QString& number, const QString& debit,
                 const QString& credit, double sum, const QString& firm, int firmSign,
                 const QString& currency = QStringLiteral("   "), double rate = 0) {
        const OrvoObjectUIOPtr op = NewOperation();
        EXPECT_TRUE(op);
        if (!op)
            return QString();
        op->SetField(QStringLiteral("DateD"), Value(date));
        op->SetField(QStringLiteral("Number"), number);
        const ValueResult added = op->Methods(
            QStringLiteral("AddBR"),
            {Value(debit), Value(credit), Value(sum),
             Value(
                 ValueArray{Value(qint16(firmSign)), Value(firm), Value(QStringLiteral("Firma"))}),
             Value(qint16(currency.trimmed().isEmpty() ? 0 : firmSign)), Value(currency),
             Value(rate), Value(0.0), Value(QStringLiteral("   ")), Value(0.0)});
        EXPECT_TRUE(added.ok()) << added.Text.toStdString();
        const ResultRecord saved = op->Save();
        EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT b.ID FROM BR b JOIN BROpers o ON o.ID = b.BROperID WHERE "
                           "o.Number = ?"),
            {Value(number)});
        EXPECT_TRUE(q.ok() && q.RowCount() == 1);
        return q.ok() && q.RowCount() == 1
                   ? QStringLiteral("O0201500") + QString::number(qint64(q.Scalar().toDouble()))
                   : QString();
    }

    // The open debts the business object reports.
    RecordsetPtr Debts(const QString& account, const QString& firm, int sign,
                       const QDate& date = Today()) {
        const OrvoObjectUIOPtr op = NewOperation();
        const ValueResult r = op->Properties(
            sign == 1 ? QStringLiteral("DebtsByDebit") : QStringLiteral("DebtsByCredit"),
            QStringLiteral("'0','%1','%2','%3',%4")
                .arg(account, DateParam(date), firm, QString::number(sign)));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Value.toRecordset();
    }

    static RecordsetPtr Entries(const OrvoObjectUIOPtr& op) {
        RecordsetPtr br = op->Field(QStringLiteral("BR")).toRecordset();
        if (br)
            br->MoveFirst();
        return br;
    }

    struct EntryView {
        QString debit;
        QString credit;
        double sumA = 0;
        QDate date;
        // Sign, FOIDR per addressee row.
        QStringList addressees;
        // Sign, code, SumCurr, RateCurr per currency row.
        QStringList currencies;
    };
    static QVector<EntryView> View(const OrvoObjectUIOPtr& op) {
        QVector<EntryView> out;
        const RecordsetPtr br = Entries(op);
        for (br->MoveFirst(); br && !br->Eof(); br->MoveNext()) {
            EntryView e;
            e.debit = NzString(br->Field(QStringLiteral("AccountD")));
            e.credit = NzString(br->Field(QStringLiteral("AccountC")));
            e.sumA = NzDouble(br->Field(QStringLiteral("SumA")));
            e.date = NzDate(br->Field(QStringLiteral("DateD")), QDate());
            const RecordsetPtr props = br->Field(QStringLiteral("BRProperties")).toRecordset();
            for (props->MoveFirst(); !props->Eof(); props->MoveNext())
                e.addressees.append(QString::number(NzInt(props->Field(QStringLiteral("Sign")))) +
                                    QLatin1Char(' ') +
                                    NzString(props->Field(QStringLiteral("FOIDR"))));
            const RecordsetPtr cur = br->Field(QStringLiteral("BRCurrency")).toRecordset();
            for (cur->MoveFirst(); !cur->Eof(); cur->MoveNext())
                e.currencies.append(
                    QString::number(NzInt(cur->Field(QStringLiteral("Sign")))) + QLatin1Char(' ') +
                    NzString(cur->Field(QStringLiteral("FCurrencyCode"))) + QLatin1Char(' ') +
                    QString::number(NzDouble(cur->Field(QStringLiteral("SumCurr"))), 'f', 2) +
                    QLatin1Char(' ') +
                    QString::number(NzDouble(cur->Field(QStringLiteral("RateCurr"))), 'f', 9));
            out.append(e);
        }
        return out;
    }

    QList<host::RecordedMessage> Boxes() { return session_->Messages()->Take(); }
};

} // namespace orvo::test
