// The fixture of the tests that store operations in a real book: a HostSession on an
// SQLite file or a PostgreSQL database of the test's own (see storage_fixture.h), the
// operation classes registered, and helpers that build operations through UIO0201500's
// own commands and dump them for comparison.
#pragma once

#include "../host/storage_fixture.h"

#include "core/recordset.h"
#include "frame/object_registry.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"
#include "host/session/host_session.h"
#include "host/session/scripted_messages.h"
#include "operations/operation_registration.h"

namespace orvo::test {

class OperationsBook : public host::testing::StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        RegisterOperationClasses();
        host::SessionResult r = host::HostSession::Open(location_, host::OpenMode::CreateIfMissing);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
    }
    void TearDown() override {
        session_.reset();
        StorageTest::TearDown();
    }

    // A data object through the host's objects service: a blank one for a code, the
    // stored record for a reference.
    OrvoObjectUIOPtr Object(const QString& codeOrOidr) {
        return session_->Services()->ObjectsService()->GetObjectUIO(codeOrOidr);
    }
    OrvoObjectUIPtr Navigator(const QString& code = QStringLiteral("O0201500")) {
        return session_->Services()->ObjectsService()->GetObjectUI(code);
    }

    static RecordsetPtr Nested(const RecordsetPtr& rs, const char* field) {
        return rs->Field(QString::fromLatin1(field)).toRecordset();
    }
    static RecordsetPtr Entries(const OrvoObjectUIOPtr& op) {
        return op->Field(QStringLiteral("BR")).toRecordset();
    }

    // AddBR with the editors' parameters.
    static ValueResult AddBR(const OrvoObjectUIOPtr& op, const ValueArray& parameters) {
        return op->Methods(QStringLiteral("AddBR"), parameters);
    }

    // Moves the entries to the one with this GUID.
    static bool GoToEntry(const OrvoObjectUIOPtr& op, const QString& guid) {
        const RecordsetPtr br = Entries(op);
        for (br->MoveFirst(); !br->Eof(); br->MoveNext())
            if (br->Field(QStringLiteral("GUID")).toString() == guid)
                return true;
        return false;
    }

    qint64 Count(const QString& sql, const ValueArray& params = {}) {
        const host::QueryResult q = session_->Db().Query(sql, params);
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        return q.ok() ? static_cast<qint64>(q.Scalar().toDouble()) : -1;
    }

    static qint64 NumberOf(const QString& oidr) { return oidr.mid(8).toLongLong(); }

    // The record as text, every field and nested row in order, leaving out what a save
    // changes by design: record numbers, the lock, the protocol and the demands.
    static QString Dump(const RecordsetPtr& rs) {
        static const QStringList skipped = {"ID",
                                            "OIDR",
                                            "LockGUID",
                                            "CreatedByUserOIDR",
                                            "CreatedByUserName",
                                            "CreationDate",
                                            "ChangedByUserOIDR",
                                            "ChangedByUserName",
                                            "CorrectionDate",
                                            "RequiredAddr",
                                            "Tag"};
        QString out;
        if (!rs)
            return QStringLiteral("<none>");
        const FieldDefs& defs = rs->FieldDefinitions();
        for (int row = 0; row < rs->RowCountAll(); ++row) {
            if (rs->StatusAt(row) == RowStatus::Deleted)
                continue;
            out += QLatin1Char('{');
            for (int f = 0; f < defs.size(); ++f) {
                if (skipped.contains(defs.at(f).name))
                    continue;
                const Value v = rs->ValueAt(row, f);
                out += defs.at(f).name + QLatin1Char('=');
                if (defs.at(f).type == FieldType::Chapter)
                    out += QLatin1Char('[') + Dump(v.toRecordset()) + QLatin1Char(']');
                else if (v.isNull())
                    out += QStringLiteral("null");
                else if (v.kind() == Value::Kind::Double)
                    out += QString::number(v.toDouble(), 'f', 6);
                else if (v.kind() == Value::Kind::Date)
                    out += v.toDate().toString(Qt::ISODate);
                else
                    out += v.toString();
                out += QLatin1Char(';');
            }
            out += QLatin1Char('}');
        }
        return out;
    }

    std::unique_ptr<host::HostSession> session_;
};

} // namespace orvo::test
