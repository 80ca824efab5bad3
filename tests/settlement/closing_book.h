// The fixture of the tests of deferred-period covers and of the accounts closing: a demo
// book on SQLite or on a PostgreSQL database of the test's own (see storage_fixture.h),
// with a few accounts the demo chart lacks (deferred expense and income, income and
// expense left out of the closing), a session with the classes registered, and helpers
// that store operations through the operation object's own commands and read back the
// entries the book holds.
#pragma once

#include "closing_entries.h"
#include "demo_book_session.h"

#include "core/null_readers.h"
#include "host/session/scripted_messages.h"

namespace orvo::test {

class ClosingBook : public DemoBookSession {
protected:
    struct Entry {
        QString Debit;
        QString Credit;
        double Sum = 0;
    };

    void SetUp() override {
        DemoBookSession::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        for (const char* account : {"59", "5900", "69", "6900", "2910", "4910"})
            ASSERT_TRUE(
                session_->Db()
                    .Execute(QStringLiteral("INSERT INTO Accounts (Account, Name) VALUES (?, ?)"),
                             {Value(QString::fromLatin1(account)),
                              Value(QStringLiteral("Sąskaita ") + QString::fromLatin1(account))})
                    .ok());
    }

    // The number of the demo group of that name.
    qint32 Group(const QString& name) {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT ID FROM BROperGroups WHERE Name = ?"), {Value(name)});
        EXPECT_TRUE(q.ok() && q.RowCount() == 1) << name.toStdString();
        return q.ok() && q.RowCount() > 0 ? static_cast<qint32>(q.Scalar().toDouble()) : 0;
    }
    qint32 GeneralGroup() { return Group(QStringLiteral("Bendrosios operacijos")); }
    qint32 ClosingGroup() { return Group(QStringLiteral("Metų uždarymas")); }

    // A stored operation of the general group on `date`; its reference, or empty.
    QString Book(const QDate& date, const QString& number, const QVector<Entry>& entries,
                 const QString& comment = QString()) {
        const OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
        EXPECT_TRUE(op);
        if (!op)
            return QString();
        op->SetField(QStringLiteral("BROperGroupID"), Value(GeneralGroup()));
        op->SetField(QStringLiteral("DateD"), Value(date));
        op->SetField(QStringLiteral("Number"), Value(number));
        op->SetField(QStringLiteral("Comment"), Value(comment));
        for (const Entry& e : entries) {
            const ValueResult added =
                op->Methods(QStringLiteral("AddBR"),
                            {Value(e.Debit), Value(e.Credit), Value(e.Sum), Value(ValueArray{})});
            EXPECT_EQ(added.Code, 0) << added.Text.toStdString();
        }
        const ResultRecord saved = op->Save();
        EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
        return saved.ok() ? op->OIDR() : QString();
    }

    // The reference of the only entry of a stored operation.
    QString EntryOf(const QString& operation) {
        const host::QueryResult q =
            session_->Db().Query(QStringLiteral("SELECT ID FROM BR WHERE BROperID = ?"),
                                 {Value(operation.mid(8).toDouble())});
        EXPECT_TRUE(q.ok() && q.RowCount() == 1);
        return q.ok() && q.RowCount() > 0
                   ? QStringLiteral("O0201500") + QString::number(qint64(q.Scalar().toDouble()))
                   : QString();
    }

    // The stored entries of one operation as "debit|credit|sum|date", in their order.
    QStringList StoredEntries(const QString& operation) {
        return StoredEntryLines(session_->Db(), operation);
    }

    qint64 Count(const QString& sql, const ValueArray& params = {}) {
        const host::QueryResult q = session_->Db().Query(sql, params);
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        return q.ok() ? static_cast<qint64>(q.Scalar().toDouble()) : -1;
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
