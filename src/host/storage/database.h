// Database is the one interface over the two places a book can live: an SQLite file (the
// embedded default) or a PostgreSQL database (a book shared by many users). Everything
// above storage talks to this interface and never to a backend's library.
//
// The contract:
// - Open(location, mode). A location beginning "postgresql://" or "postgres://" is a
//   PostgreSQL connection string; anything else is the path of an SQLite file. Opening a
//   book checks that it is one of ours (SQLite: PRAGMA application_id; PostgreSQL: the
//   one-row schema_version table), refuses a book written by a newer program, and
//   applies the pending migrations, each in its own transaction. Every refusal is a
//   result with a non-zero Code and a Lithuanian Text that names the location (never a
//   password) and leaves the book as it was.
// - Statements take positional parameters written `?` in the SQL; the PostgreSQL
//   backend rewrites them to $1..$n outside quotes and comments. No value is ever pasted
//   into SQL text. Parameters are orvo::Value: Null, Bool (stored 1/0), Int16/Int32,
//   Double, Text, Date, DateTime; any other kind is refused.
// - Query gives rows of orvo::Value: whole numbers come back as Int32 when they fit and
//   as Double otherwise (exact up to 2^53, which covers every sum of hundredths), so a
//   record number or a sum of cents never loses a digit in practice; fractional numbers
//   as Double, texts as Text, NULL as Null. Dates come back as QDate: PostgreSQL knows
//   its DATE columns; SQLite keeps dates as 'YYYY-MM-DD' text in STRICT TEXT columns and
//   reads a column as a date when the column it comes from is described as a Date in a
//   registered table (RegisterTable; every table of the migrations is registered when
//   the book opens). A computed column (MAX(DateD) AS LastDate) is read as a date when
//   the caller names it in `dateColumns`; PostgreSQL needs no such hint but accepts it.
// - QueryEach streams the rows of a query to a visitor instead (row_cursor.h): nothing is
//   kept but what the visitor keeps, which is how a list of a hundred thousand rows is
//   read. A failure of the statement is the result; a visitor that stops early is not.
// - Column names come back in the spelling of the registered schema (`VATCode` even
//   where PostgreSQL says "vatcode"); an alias outside the schema comes back as the
//   backend gives it, so write such aliases in double quotes when their case matters.
// - Transactions nest. The outermost Begin starts a transaction (SQLite takes the write
//   lock at once with BEGIN IMMEDIATE); each inner Begin sets a savepoint, so an inner
//   Rollback undoes only the inner work. When a statement fails inside a transaction,
//   the level it failed in can only be rolled back: its Commit rolls it back and reports
//   the failure, which makes both backends behave as PostgreSQL does. TransactionGuard
//   rolls back whatever it began unless it was committed.
// - NextId draws from a named sequence; the record sequence ("record_id") is the one
//   that operations and their entries share, so a number is never given twice within a
//   book. Numbers are strictly increasing but not gap-free: SQLite keeps a counter row
//   updated inside the caller's transaction (a rollback returns the numbers), PostgreSQL
//   a real SEQUENCE (a rollback leaves a gap).
// - ReserveRowIds gives numbers for new rows of a table that numbers its own rows (its
//   Id column), so that a caller can insert many rows with their numbers known in
//   advance instead of asking for each number back. SQLite: only inside a transaction,
//   whose write lock keeps the numbers ours; they lie above the table's largest number
//   and above every number reserved earlier in the transaction, and the rows are to be
//   inserted before the table takes a row without a number (which the database numbers
//   one above the largest present). PostgreSQL: drawn from the column's identity
//   sequence, as a row inserted without a number would be, so they never collide.
// - InsertRows inserts many rows of one table with multi-row statements of a few fixed
//   sizes, each prepared once per connection and reused (PostgreSQL sends single-row
//   statements in one pipeline instead). It opens no transaction of its own: a failure
//   marks the caller's level failed like any failed statement.
// - Execute reports the rows a statement changed, which is what an optimistic lock
//   needs: UPDATE ... WHERE ID = ? AND LockGUID = ? changing no row is a conflict.
// - A Database is used from one thread at a time.
#pragma once

#include "core/results.h"
#include "core/value.h"
#include "host/storage/query_result.h"
#include "host/storage/row_cursor.h"
#include "host/storage/schema.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>
#include <memory>

namespace orvo::host {

enum class Backend { SQLite, PostgreSQL };

enum class OpenMode {
    // The book must exist and be a book of this program; pending migrations are applied.
    Existing,
    // As Existing, but a missing SQLite file (in an existing folder) or an empty
    // PostgreSQL database becomes a new book with the latest structure.
    CreateIfMissing,
    // A plain connection with no check of the book and no migration, for maintenance
    // and for tests that build their own tables. A missing SQLite file is created.
    ConnectOnly,
};

struct ExecResult {
    qint32 Code = 0;
    QString Text;
    qint64 RowsAffected = 0;

    bool ok() const { return Code == 0; }
    static ExecResult Failure(qint32 code, const QString& text) { return {code, text, 0}; }
};

struct IdResult {
    qint32 Code = 0;
    QString Text;
    qint64 Id = 0;

    bool ok() const { return Code == 0; }
};

struct IdsResult {
    qint32 Code = 0;
    QString Text;
    // In increasing order.
    QVector<qint64> Ids;

    bool ok() const { return Code == 0; }
};

class Database;
using DatabasePtr = std::unique_ptr<Database>;

struct OpenResult {
    qint32 Code = 0;
    QString Text;
    DatabasePtr Db;

    bool ok() const { return Code == 0; }
};

// The sequence that operations and their entries draw their numbers from.
inline const QString kRecordSequence = QStringLiteral("record_id");

class Database {
public:
    static OpenResult Open(const QString& location, OpenMode mode = OpenMode::Existing);
    static bool IsPostgresLocation(const QString& location);
    // The location as it may be shown: a connection string without its password.
    static QString DisplayLocation(const QString& location);

    virtual ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Dialect facts.
    virtual Backend Kind() const = 0;
    QString BackendName() const;
    const QString& Location() const { return displayLocation_; }
    // The migration the book stands at (0 for a plain connection).
    int SchemaVersion() const { return schemaVersion_; }

    // Statements.
    virtual ExecResult Execute(const QString& sql, const ValueArray& params = {}) = 0;
    // The same statement once per row of parameters, all or nothing: the rows are run
    // inside a transaction (a savepoint when one is open). The fast path for batches.
    virtual ExecResult ExecuteMany(const QString& sql, const QVector<ValueArray>& rows) = 0;
    virtual QueryResult Query(const QString& sql, const ValueArray& params = {},
                              const QStringList& dateColumns = {}) = 0;
    virtual ResultRecord QueryEach(const QString& sql, const ValueArray& params,
                                   const RowVisitor& visit) = 0;

    // Transactions.
    ResultRecord Begin();
    ResultRecord Commit();
    ResultRecord Rollback();
    int TransactionDepth() const { return failed_.size(); }

    // Identifiers.
    virtual IdResult NextId(const QString& sequence = kRecordSequence) = 0;
    // `count` numbers at once, in increasing order (not necessarily consecutive).
    virtual IdsResult NextIds(const QString& sequence, int count) = 0;
    // Numbers for `count` new rows of `table` (see the contract above), increasing.
    virtual IdsResult ReserveRowIds(const QString& table, int count) = 0;

    // Bulk insertion: every row of `rows` holds one value per name of `columns`. Rows
    // affected is the number of rows inserted.
    virtual ExecResult InsertRows(const QString& table, const QStringList& columns,
                                  const QVector<ValueArray>& rows);

    // Schema. Each creates the object in this backend's dialect; CreateTable also
    // registers the table.
    ResultRecord CreateTable(const TableDef& table);
    ResultRecord CreateIndex(const IndexDef& index);
    ResultRecord CreateSequence(const SequenceDef& sequence);
    // Makes the description known for reading results: date columns and the spelling of
    // column names. Registering the same table again replaces nothing and costs little.
    void RegisterTable(const TableDef& table);

protected:
    explicit Database(const QString& displayLocation) : displayLocation_(displayLocation) {}

    // What the book says of itself.
    struct SchemaStamp {
        qint32 ApplicationId = 0;
        int Version = 0;
        // No tables at all: a fresh file or an empty database.
        bool Empty = true;
    };
    virtual ResultRecord ReadSchemaStamp(SchemaStamp& stamp) = 0;
    // Inside the migration's transaction: marks the book ours and at `version`.
    virtual ResultRecord WriteSchemaStamp(int version) = 0;
    // Settings of the connection, made once the book is known to be ours.
    virtual ResultRecord Configure() = 0;
    // Inside a migration's transaction, before the stamp is read again: keeps two
    // programs from migrating the same book at once.
    virtual ResultRecord LockForMigration() { return {}; }
    // Called when opening failed after this connection created a new book: removes
    // what was created.
    virtual void AbandonNewBook() {}

    // A statement that controls a transaction (BEGIN, COMMIT, SAVEPOINT ...).
    virtual ResultRecord ExecControl(const QString& sql) = 0;
    virtual QString BeginSql() const = 0;
    // Backends call this when a statement fails, so that Commit refuses that level.
    void NoteStatementFailure();
    // Called when the outermost transaction has ended, committed or rolled back.
    virtual void TransactionEnded() {}

    // Reading results.
    ColumnType KnownColumnType(const QString& table, const QString& column,
                               ColumnType fallback) const;
    QString CanonicalName(const QString& name) const;
    bool HasDateColumns() const { return !columnTypes_.isEmpty(); }
    // Changes whenever the registered schema changes, for backends that cache column
    // knowledge per prepared statement.
    quint64 SchemaGeneration() const { return schemaGeneration_; }

    void SetSchemaVersion(int version) { schemaVersion_ = version; }

    friend class Migrator;

private:
    ResultRecord RunStatements(const QVector<Statement>& statements);

    QString displayLocation_;
    int schemaVersion_ = 0;
    // One entry per open level: whether a statement failed in it.
    QVector<bool> failed_;
    // "table.column" in lower case -> kind, for date and date-time columns.
    QHash<QString, ColumnType> columnTypes_;
    // Lower-case name -> spelling of the schema.
    QHash<QString, QString> canonicalNames_;
    quint64 schemaGeneration_ = 0;
    // Table and columns -> the INSERT texts of every size InsertRows uses.
    QHash<QString, QStringList> insertSql_;
};

} // namespace orvo::host
