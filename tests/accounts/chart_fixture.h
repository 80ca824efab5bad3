// The fixture of the chart's component tests: a real session on a new book on each
// backend, the chart's classes registered, a small chart stored through the data object,
// and a plain form that the Forms service can hand out by name.
#pragma once

#include "accounts/account_plan_navigator.h"
#include "accounts/account_plan_object.h"
#include "accounts/account_registration.h"
#include "frame/form_registry.h"
#include "frame/orvo_form.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"
#include "host/session/host_session.h"
#include "host/session/scripted_messages.h"
#include "host/storage_fixture.h"

namespace orvo::accounts_testing {

// A window that only remembers what its opener set.
class PlainForm : public OrvoForm {
public:
    explicit PlainForm(const QString& name) : name_(name) {}
    QString FormName() const override { return name_; }
    void Show(bool) override {}
    void UnloadShowOrvoObject() override {}

private:
    QString name_;
};

class ChartTest : public host::testing::StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        host::SessionResult r = host::HostSession::Open(location_, host::OpenMode::CreateIfMissing);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
        RegisterAccountClasses();
        navigator_ = std::dynamic_pointer_cast<UI0200400>(
            session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0200400")));
        ASSERT_TRUE(navigator_);
    }
    void TearDown() override {
        navigator_.reset();
        session_.reset();
        StorageTest::TearDown();
    }

    // A new record stored through the data object; its ID.
    qint64 Add(qint64 parentId, const QString& account, const QString& name,
               const QString& type = QStringLiteral("D")) {
        OrvoObjectUIOPtr object = navigator_->GetOrvoObject(QString());
        EXPECT_TRUE(object);
        if (!object)
            return 0;
        object->SetField(QStringLiteral("ParentID"),
                         parentId > 0 ? Value(double(parentId)) : Value());
        object->SetField(QStringLiteral("Account"), account);
        object->SetField(QStringLiteral("Name"), name);
        object->SetField(QStringLiteral("Type"), type);
        const ResultRecord r = object->Save();
        EXPECT_TRUE(r.ok()) << account.toStdString() << ": " << r.Text.toStdString();
        return object->OIDR().mid(8).toLongLong();
    }

    OrvoObjectUIOPtr Object(qint64 id) {
        return navigator_->GetOrvoObject(QStringLiteral("O0200401%1").arg(id));
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

    std::unique_ptr<host::HostSession> session_;
    std::shared_ptr<UI0200400> navigator_;
};

} // namespace orvo::accounts_testing
