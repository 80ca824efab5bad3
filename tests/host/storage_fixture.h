// The fixture behind every storage test that runs on both backends. An SQLite instance
// gets a book in a fresh temporary folder; a PostgreSQL instance gets a database of its
// own (orvo_t_ and random letters) on the server named by ORVO_TEST_PG, dropped when the
// test ends, so that no test sees another's rows. Without ORVO_TEST_PG the PostgreSQL
// instances are skipped with a message; the test script always sets it.
#pragma once

#include "host/storage/database.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QUrl>

namespace orvo::host::testing {

inline QString PostgresServer() {
    return qEnvironmentVariable("ORVO_TEST_PG");
}

inline std::string BackendLabel(const ::testing::TestParamInfo<Backend>& info) {
    return info.param == Backend::SQLite ? "SQLite" : "PostgreSQL";
}

class StorageTest : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        if (GetParam() == Backend::SQLite) {
            ASSERT_TRUE(dir_.isValid());
            location_ = dir_.filePath(QStringLiteral("knyga.orvo"));
            return;
        }
        if (PostgresServer().isEmpty())
            GTEST_SKIP() << "ORVO_TEST_PG is not set: the PostgreSQL instance is skipped";
        OpenResult admin = Database::Open(PostgresServer(), OpenMode::ConnectOnly);
        ASSERT_TRUE(admin.ok()) << admin.Text.toStdString();
        admin_ = std::move(admin.Db);
        databaseName_ =
            QStringLiteral("orvo_t_%1")
                .arg(QRandomGenerator::global()->generate64(), 16, 16, QLatin1Char('0'));
        // A database name is a name, not a value: it cannot be a parameter.
        ExecResult created = admin_->Execute(QStringLiteral("CREATE DATABASE ") + databaseName_);
        ASSERT_TRUE(created.ok()) << created.Text.toStdString();
        QUrl url(PostgresServer());
        url.setPath(QLatin1Char('/') + databaseName_);
        location_ = url.toString();
    }

    void TearDown() override {
        if (admin_ && !databaseName_.isEmpty()) {
            admin_->Execute(
                QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(databaseName_));
        }
    }

    // Opens this test's book; a failure ends the test.
    DatabasePtr OpenBook(OpenMode mode = OpenMode::CreateIfMissing) {
        OpenResult r = Database::Open(location_, mode);
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return std::move(r.Db);
    }

    // A plain connection to this test's database, for tables of the test's own.
    DatabasePtr Connect() { return OpenBook(OpenMode::ConnectOnly); }

    bool IsPostgres() const { return GetParam() == Backend::PostgreSQL; }

    QTemporaryDir dir_;
    QString location_;
    QString databaseName_;
    DatabasePtr admin_;
};

#define ORVO_STORAGE_BACKENDS(Suite)                                                               \
    INSTANTIATE_TEST_SUITE_P(                                                                      \
        Storage, Suite,                                                                            \
        ::testing::Values(orvo::host::Backend::SQLite, orvo::host::Backend::PostgreSQL),           \
        orvo::host::testing::BackendLabel)

} // namespace orvo::host::testing
