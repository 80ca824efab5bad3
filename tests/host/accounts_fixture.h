// The fixture of the chart-of-accounts tests: a session on a new book on each backend,
// and short ways to store and read accounts through the business object's methods, as
// the chart's data object does.
#pragma once

#include "core/recordset.h"
#include "frame/business_object.h"
#include "host/session/host_session.h"
#include "storage_fixture.h"

#include <QPair>
#include <QVector>

namespace orvo::host::testing {

class AccountsTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        SessionResult r = HostSession::Open(location_, OpenMode::CreateIfMissing);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
    }
    void TearDown() override {
        session_.reset();
        StorageTest::TearDown();
    }

    BOResult Call(const QString& method, const QString& text = QStringLiteral("None"),
                  const Value& data = Value()) {
        return session_->BO()->Call(method, text, data);
    }

    // A blank account record as the data object reads it.
    RecordsetPtr Blank() {
        const BOResult r =
            Call(QStringLiteral("DO0200401_GetOrvoObject"), QStringLiteral("'O0200401'"));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }

    RecordsetPtr Read(qint64 id) {
        const BOResult r =
            Call(QStringLiteral("DO0200401_GetOrvoObject"), QStringLiteral("'O0200401%1'").arg(id));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return r.Data.toRecordset();
    }

    BOResult SaveRecord(const RecordsetPtr& rs, qint64 id = 0) {
        return Call(QStringLiteral("DO0200401_SaveOrvoObject"),
                    id > 0 ? QStringLiteral("'O0200401%1'").arg(id) : QStringLiteral("''"),
                    Value(rs));
    }

    // Stores a new record; the result of the save.
    BOResult Save(qint64 parentId, const QString& account, const QString& name,
                  const QString& type = QStringLiteral("D"), qint64 role = 0) {
        RecordsetPtr rs = Blank();
        if (!rs)
            return BOResult::Failure(-1, QStringLiteral("no blank record"));
        rs->MoveFirst();
        if (parentId > 0)
            rs->SetField(QStringLiteral("ParentID"), Value(double(parentId)));
        rs->SetField(QStringLiteral("Account"), account);
        rs->SetField(QStringLiteral("Name"), name);
        rs->SetField(QStringLiteral("Type"), type);
        rs->SetField(QStringLiteral("BRAPropertyID"), Value(double(role)));
        rs->Update();
        return SaveRecord(rs);
    }

    // Stores a new record that must be accepted; its ID.
    qint64 Add(qint64 parentId, const QString& account, const QString& name,
               const QString& type = QStringLiteral("D"), qint64 role = 0) {
        const BOResult r = Save(parentId, account, name, type, role);
        EXPECT_TRUE(r.ok()) << account.toStdString() << ": " << r.Text.toStdString();
        const RecordsetPtr out = r.Data.toRecordset();
        if (!out)
            return 0;
        out->MoveFirst();
        return static_cast<qint64>(out->Field(QStringLiteral("ID")).toDouble());
    }

    qint64 RoleId(const QString& code) {
        const QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT ID FROM BRASettings WHERE Code = ?"), {Value(code)});
        EXPECT_EQ(q.RowCount(), 1) << code.toStdString();
        return static_cast<qint64>(q.Scalar().toDouble());
    }

    // The rows of a recordset as the values of the named fields joined by "|".
    static QStringList Rows(const RecordsetPtr& rs, const QStringList& fields) {
        QStringList out;
        if (!rs)
            return out;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            QStringList cells;
            for (const QString& f : fields)
                cells << rs->Field(f).toString();
            out << cells.join(QLatin1Char('|'));
        }
        return out;
    }

    std::unique_ptr<HostSession> session_;
};

} // namespace orvo::host::testing
