// The fixture of the operation-group component tests: a real session on a new book on
// each backend, the group and operation classes registered, groups stored through the
// group's data object, and plain windows that the Forms service hands out by name.
#pragma once

#include "accounts/group_navigator.h"
#include "accounts/group_object.h"
#include "accounts/group_registration.h"
#include "chart_fixture.h"
#include "core/today.h"

namespace orvo::accounts_testing {

class GroupTest : public host::testing::StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        SetToday(QDate(2024, 3, 15));
        host::SessionResult r = host::HostSession::Open(location_, host::OpenMode::CreateIfMissing);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
        RegisterGroupClasses();
        navigator_ = std::dynamic_pointer_cast<UI0201400>(
            session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201400")));
        ASSERT_TRUE(navigator_);
    }
    void TearDown() override {
        navigator_.reset();
        session_.reset();
        SetToday(QDate());
        StorageTest::TearDown();
    }

    // A new group stored through the data object; its ID.
    qint64 AddGroup(const QString& name, qint64 parentId = 0, bool general = false,
                    const QString& formOID = QStringLiteral("O0201500")) {
        OrvoObjectUIOPtr object = navigator_->GetOrvoObject(QString());
        EXPECT_TRUE(object);
        if (!object)
            return 0;
        object->SetField(QStringLiteral("Name"), name);
        if (parentId > 0)
            object->SetField(QStringLiteral("ParentID"), Value(double(parentId)));
        object->SetField(QStringLiteral("GroupFlag"), Value(general ? 1 : 0));
        object->SetField(QStringLiteral("FormOID"), formOID);
        const ResultRecord r = object->Save();
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return object->OIDR().mid(8).toLongLong();
    }

    // A stored operation of the group, dated `date`.
    void AddOperation(qint64 groupId, const QDate& date, const QString& number) {
        const BOResult blank = session_->BO()->Call(QStringLiteral("DO0201500_GetOrvoObject"),
                                                    QStringLiteral("'O0201500'"));
        ASSERT_TRUE(blank.ok()) << blank.Text.toStdString();
        const RecordsetPtr rs = blank.Data.toRecordset();
        rs->MoveFirst();
        rs->SetField(QStringLiteral("BROperGroupID"), Value(double(groupId)));
        rs->SetField(QStringLiteral("DateD"), Value(date));
        rs->SetField(QStringLiteral("Number"), number);
        rs->Update();
        const BOResult saved = session_->BO()->Call(QStringLiteral("DO0201500_SaveOrvoObject"),
                                                    QStringLiteral("''"), Value(rs));
        ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    }

    static QString GroupOID(qint64 id) { return QStringLiteral("O0201400%1").arg(id); }

    QStringList Captions(const QString& oid) {
        QStringList out;
        for (const MenuItem& item : navigator_->GetMenu(oid, QStringLiteral("O0201400"), QString()))
            out << item.Caption;
        return out;
    }

    void RegisterForm(const QString& name) {
        session_->Forms()->Register(name, [name] { return std::make_shared<PlainForm>(name); });
    }

    QStringList Shown() {
        QStringList out;
        for (const host::RecordedMessage& m : session_->Messages()->Take())
            out << m.Text;
        return out;
    }

    static QStringList Rows(const RecordsetPtr& rs, const QString& field) {
        QStringList out;
        if (!rs)
            return out;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            out << rs->Field(field).toString();
        return out;
    }

    std::unique_ptr<host::HostSession> session_;
    std::shared_ptr<UI0201400> navigator_;
};

} // namespace orvo::accounts_testing
