// PostgresDatabase: a book kept in a PostgreSQL database, reached through libpq, for
// books that many users share. The schema is the one the SQLite backend has, in
// PostgreSQL's own types: dates as DATE, amounts as BIGINT hundredths, rates as double
// precision, the record sequence as a real SEQUENCE.
//
// Parameters travel as text with a type the server is told where the value's kind
// fixes it (whole numbers as bigint, fractions as double precision, dates, date-times);
// a text parameter is left for the server to type from its context, as SQLite converts
// a text that fits a column. Statements with parameters are prepared once per SQL text
// and kinds of parameter; ExecuteMany and InsertRows send their rows in libpq's pipeline
// mode, one single-row statement per row, so that the statements prepared stay few.
#pragma once

#include "host/storage/database.h"

#include <QByteArray>
#include <QHash>

struct pg_conn;
struct pg_result;

namespace orvo::host {

class PostgresDatabase final : public Database {
public:
    static ResultRecord Connect(const QString& location, DatabasePtr& out);
    ~PostgresDatabase() override;

    Backend Kind() const override { return Backend::PostgreSQL; }

    ExecResult Execute(const QString& sql, const ValueArray& params = {}) override;
    ExecResult ExecuteMany(const QString& sql, const QVector<ValueArray>& rows) override;
    QueryResult Query(const QString& sql, const ValueArray& params = {},
                      const QStringList& dateColumns = {}) override;
    ResultRecord QueryEach(const QString& sql, const ValueArray& params,
                           const RowVisitor& visit) override;

    IdResult NextId(const QString& sequence = kRecordSequence) override;
    IdsResult NextIds(const QString& sequence, int count) override;
    IdsResult ReserveRowIds(const QString& table, int count) override;
    ExecResult InsertRows(const QString& table, const QStringList& columns,
                          const QVector<ValueArray>& rows) override;

protected:
    ResultRecord ReadSchemaStamp(SchemaStamp& stamp) override;
    ResultRecord WriteSchemaStamp(int version) override;
    ResultRecord Configure() override { return {}; }
    ResultRecord LockForMigration() override;
    ResultRecord ExecControl(const QString& sql) override;
    QString BeginSql() const override { return QStringLiteral("BEGIN"); }

private:
    PostgresDatabase(pg_conn* conn, const QString& displayLocation);

    // One row of parameters in the form libpq takes.
    struct Params {
        QVector<QByteArray> Texts;
        QVector<const char*> Values;
        QVector<unsigned int> Types;
        QByteArray Signature;
    };
    bool Convert(const ValueArray& params, Params& out, QString* error) const;
    // The name of the prepared statement for this SQL and these parameter types.
    bool Prepare(const QString& sql, const Params& params, QByteArray* name, QString* error);
    // Runs a statement; the result (to be cleared by the caller) or null with `error`.
    pg_result* Run(const QString& sql, const ValueArray& params, QString* error);
    QueryResult ReadRows(pg_result* res, const QStringList& dateColumns) const;
    // Sends the statement once per row of parameters in pipeline mode, inside whatever
    // transaction is open; a failure marks the open level failed.
    ExecResult Pipeline(const QString& sql, const QVector<ValueArray>& rows);
    QString ConnectionError() const;

    pg_conn* conn_ = nullptr;
    QHash<QByteArray, QByteArray> prepared_;
    int statementCounter_ = 0;
};

} // namespace orvo::host
