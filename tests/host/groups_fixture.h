// The fixture of the operation-group tests: a session on a new book on each backend
// (with the chart helpers of AccountsTest), and short ways to store groups and
// operations and to draw automatic numbers through the business object's methods, as
// the data objects do. "Today" is fixed per test and released afterwards.
#pragma once

#include "accounts_fixture.h"
#include "core/today.h"

#include <QMap>

namespace orvo::host::testing {

class GroupsTest : public AccountsTest {
protected:
    void SetUp() override {
        AccountsTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        SetToday(QDate(2024, 3, 15));
    }
    void TearDown() override {
        SetToday(QDate());
        AccountsTest::TearDown();
    }

    static BOResult CallOn(HostSession& session, const QString& method, const QString& text,
                           const Value& data = Value()) {
        return session.BO()->Call(method, text, data);
    }

    // A new group with the fields given; the result of the save.
    static BOResult SaveGroupOn(HostSession& session, const QMap<QString, Value>& fields) {
        const BOResult blank = CallOn(session, QStringLiteral("DO0201400_GetOrvoObject"),
                                      QStringLiteral("'O0201400'"));
        if (!blank.ok())
            return blank;
        const RecordsetPtr rs = blank.Data.toRecordset();
        rs->MoveFirst();
        rs->SetField(QStringLiteral("Name"), QStringLiteral("Kasa"));
        for (auto it = fields.cbegin(); it != fields.cend(); ++it)
            rs->SetField(it.key(), it.value());
        rs->Update();
        return CallOn(session, QStringLiteral("DO0201400_SaveOrvoObject"), QStringLiteral("''"),
                      Value(rs));
    }

    static qint64 IdOf(const BOResult& saved) {
        const RecordsetPtr out = saved.Data.toRecordset();
        if (!out)
            return 0;
        out->MoveFirst();
        return static_cast<qint64>(out->Field(QStringLiteral("ID")).toDouble());
    }

    qint64 AddGroup(const QMap<QString, Value>& fields = {}) {
        const BOResult r = SaveGroupOn(*session_, fields);
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return IdOf(r);
    }

    // A numbered group: mask Date_Prefix_AutoNumber, prefix KO, a 4-character template,
    // counting from the first day of 2024 by year, plus the fields given.
    qint64 AddNumberedGroup(int groupBy = 1, int cycle = 3, QMap<QString, Value> fields = {}) {
        fields.insert(QStringLiteral("ANMask"), QStringLiteral("Date_Prefix_AutoNumber"));
        if (!fields.contains(QStringLiteral("ANPrefix")))
            fields.insert(QStringLiteral("ANPrefix"), QStringLiteral("KO"));
        fields.insert(QStringLiteral("ANTemplate"), QStringLiteral("0000"));
        fields.insert(QStringLiteral("ANGroupBy"), Value(groupBy));
        fields.insert(QStringLiteral("ANCycle"), Value(cycle));
        if (!fields.contains(QStringLiteral("ANDateFrom")))
            fields.insert(QStringLiteral("ANDateFrom"), Value(QDate(2024, 1, 1)));
        if (!fields.contains(QStringLiteral("ANMinimal")))
            fields.insert(QStringLiteral("ANMinimal"), Value(1));
        return AddGroup(fields);
    }

    // The counter GetAutoNumber draws on `session` for the group, user and kind.
    static qint32 DrawOn(HostSession& session, qint64 groupId, qint32 userId,
                         const QString& oType = QStringLiteral("O0201500"),
                         const QString& extra = QStringLiteral("0,''")) {
        const BOResult r =
            CallOn(session, QStringLiteral("GetAutoNumber"),
                   QStringLiteral("%1,%2,'%3',%4").arg(groupId).arg(userId).arg(oType, extra));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        const RecordsetPtr rs = r.Data.toRecordset();
        if (!rs || rs->RecordCount() != 1)
            return -1;
        rs->MoveFirst();
        return rs->Field(QStringLiteral("AutoNumber")).toInt32();
    }

    qint32 Draw(qint64 groupId, const QString& oType = QStringLiteral("O0201500")) {
        return DrawOn(*session_, groupId, session_->User().ID, oType);
    }

    // A new operation of the group with the counter given; the result of the save.
    static BOResult SaveOperationOn(HostSession& session, qint64 groupId, qint32 autoNumber,
                                    const QDate& date,
                                    const QString& oType = QStringLiteral("O0201500")) {
        const BOResult blank = CallOn(session, QStringLiteral("DO0201500_GetOrvoObject"),
                                      QStringLiteral("'%1'").arg(oType));
        if (!blank.ok())
            return blank;
        const RecordsetPtr rs = blank.Data.toRecordset();
        rs->MoveFirst();
        rs->SetField(QStringLiteral("BROperGroupID"), Value(double(groupId)));
        rs->SetField(QStringLiteral("AutoNumber"), Value(autoNumber));
        rs->SetField(QStringLiteral("Number"), QStringLiteral("Nr %1").arg(autoNumber));
        rs->SetField(QStringLiteral("DateD"), Value(date));
        rs->SetField(QStringLiteral("OType"), oType);
        rs->Update();
        return CallOn(session, QStringLiteral("DO0201500_SaveOrvoObject"), QStringLiteral("''"),
                      Value(rs));
    }

    BOResult SaveOperation(qint64 groupId, qint32 autoNumber,
                           const QDate& date = QDate(2024, 3, 15),
                           const QString& oType = QStringLiteral("O0201500")) {
        return SaveOperationOn(*session_, groupId, autoNumber, date, oType);
    }

    // A second user of the book and a session of theirs on the same book.
    std::unique_ptr<HostSession> OpenSecondUser(const QString& login = QStringLiteral("jonas")) {
        const ExecResult r = session_->Db().Execute(
            QStringLiteral("INSERT INTO Users (Code, Name, UserPref, IsAdmin) VALUES (?, ?, ?, 1)"),
            {Value(login), Value(QStringLiteral("Jonas Jonaitis")), Value(QStringLiteral("JJ"))});
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        SessionResult s = HostSession::Open(location_, OpenMode::Existing, login);
        EXPECT_TRUE(s.ok()) << s.Text.toStdString();
        return std::move(s.Session);
    }
};

} // namespace orvo::host::testing
