// SqliteDatabase: a book kept in one SQLite file, the embedded default. The connection
// runs with a write-ahead log, synchronous=FULL (a committed save survives a power
// cut), foreign keys enforced, STRICT tables and a busy timeout so that a second program
// on the same book waits instead of failing. Prepared statements are cached by their SQL
// text, which is what makes batches of inserts fast; the statements that open and close
// transactions and savepoints are cached the same way. Temporary storage (the journal
// that lets one statement or savepoint be undone) is kept in memory, and the page cache
// holds 32 MiB, so that a large save does not write its pages twice. The file is read
// through a memory map of up to 1 GiB.
//
// Before anything is written, a file is checked: it must exist (unless a book is being
// created), be writable together with its folder (the log lives beside it; a file or
// folder without write permission bits counts as read-only even for the superuser),
// be an SQLite database, and carry this program's application_id.
#pragma once

#include "host/storage/database.h"

#include <QHash>

struct sqlite3;
struct sqlite3_stmt;

namespace orvo::host {

class SqliteDatabase final : public Database {
public:
    static ResultRecord Connect(const QString& path, OpenMode mode, DatabasePtr& out);
    ~SqliteDatabase() override;

    Backend Kind() const override { return Backend::SQLite; }

    ExecResult Execute(const QString& sql, const ValueArray& params = {}) override;
    ExecResult ExecuteMany(const QString& sql, const QVector<ValueArray>& rows) override;
    QueryResult Query(const QString& sql, const ValueArray& params = {},
                      const QStringList& dateColumns = {}) override;
    ResultRecord QueryEach(const QString& sql, const ValueArray& params,
                           const RowVisitor& visit) override;

    IdResult NextId(const QString& sequence = kRecordSequence) override;
    IdsResult NextIds(const QString& sequence, int count) override;
    IdsResult ReserveRowIds(const QString& table, int count) override;

protected:
    ResultRecord ReadSchemaStamp(SchemaStamp& stamp) override;
    ResultRecord WriteSchemaStamp(int version) override;
    ResultRecord Configure() override;
    void AbandonNewBook() override;
    ResultRecord ExecControl(const QString& sql) override;
    QString BeginSql() const override { return QStringLiteral("BEGIN IMMEDIATE"); }
    void TransactionEnded() override { reserved_.clear(); }

private:
    SqliteDatabase(sqlite3* db, const QString& path, bool createdFile);

    // A prepared statement and what is known of its result columns.
    struct Prepared {
        sqlite3_stmt* Stmt = nullptr;
        quint64 Generation = ~quint64(0);
        QStringList Columns;
        QVector<ColumnType> Types;
    };

    Prepared* Prepare(const QString& sql, QString* error);
    void DescribeColumns(Prepared& p);
    // Binds the parameters; the texts they point to live in `holder` until the step.
    bool Bind(sqlite3_stmt* stmt, const ValueArray& params, QVector<QByteArray>& holder,
              QString* error);
    // Runs a bound statement to its end, reset afterwards; false with `error` set.
    bool StepToEnd(sqlite3_stmt* stmt, QString* error);
    QString LastError() const;
    ExecResult Fail(const QString& reason);
    void ClearCache();

    sqlite3* db_ = nullptr;
    QString path_;
    bool createdFile_ = false;
    QHash<QString, Prepared*> cache_;
    // Lower-case table name -> the next number ReserveRowIds may give in this transaction.
    QHash<QString, qint64> reserved_;
};

} // namespace orvo::host
