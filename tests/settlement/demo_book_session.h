// The base of the settling tests' fixtures: a book on SQLite or on a PostgreSQL database
// of the test's own (see storage_fixture.h), filled with the demo data unless a fixture
// asks for an empty one, and a HostSession on it with the operation, account and
// catalogue classes registered.
#pragma once

#include "../host/storage_fixture.h"

#include "accounts/account_registration.h"
#include "core/today.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"
#include "host/demo/demo_book.h"
#include "host/session/host_session.h"
#include "operations/operation_registration.h"

#include <QStringList>
#include <ostream>

// Readable failure output for the texts the tests compare.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
inline void PrintTo(const QStringList& l, std::ostream* os) {
    *os << '[' << l.join("|").toStdString() << ']';
}

namespace orvo::test {

class DemoBookSession : public host::testing::StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        {
            host::DatabasePtr db = OpenBook();
            ASSERT_TRUE(db);
            if (WithDemo()) {
                const ResultRecord demo = host::CreateDemoBook(*db, Today());
                ASSERT_TRUE(demo.ok()) << demo.Text.toStdString();
            }
        }
        RegisterOperationClasses();
        RegisterAccountClasses();
        host::HostSession::RegisterCatalogueClasses();
        host::SessionResult r = host::HostSession::Open(location_, host::OpenMode::CreateIfMissing);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
    }
    void TearDown() override {
        session_.reset();
        StorageTest::TearDown();
    }

    // Whether the book is filled with the demo data.
    virtual bool WithDemo() const { return true; }

    OrvoObjectUIOPtr Object(const QString& codeOrOidr) {
        return session_->Services()->ObjectsService()->GetObjectUIO(codeOrOidr);
    }

    std::unique_ptr<host::HostSession> session_;
};

} // namespace orvo::test
