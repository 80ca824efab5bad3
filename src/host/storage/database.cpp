#include "host/storage/database.h"

#include "host/storage/migrator.h"
#include "host/storage/postgres_database.h"
#include "host/storage/schema_ddl.h"
#include "host/storage/sqlite_database.h"
#include "host/storage/storage_messages.h"

#include <QUrl>
#include <QUrlQuery>

namespace orvo::host {

using namespace storage;

Database::~Database() = default;

bool Database::IsPostgresLocation(const QString& location) {
    return location.startsWith(QLatin1String("postgresql://"), Qt::CaseInsensitive) ||
           location.startsWith(QLatin1String("postgres://"), Qt::CaseInsensitive);
}

QString Database::DisplayLocation(const QString& location) {
    if (!IsPostgresLocation(location))
        return location;
    QUrl url(location, QUrl::TolerantMode);
    if (!url.isValid()) {
        // A string that is not a URL cannot be taken apart safely: show only its scheme.
        return location.section(QLatin1String("://"), 0, 0) + QStringLiteral("://...");
    }
    url.setPassword(QString());
    QUrlQuery query(url);
    if (query.hasQueryItem(QStringLiteral("password"))) {
        query.removeAllQueryItems(QStringLiteral("password"));
        url.setQuery(query);
    }
    return url.toString(QUrl::RemovePassword);
}

OpenResult Database::Open(const QString& location, OpenMode mode) {
    OpenResult result;
    DatabasePtr db;
    ResultRecord r = IsPostgresLocation(location) ? PostgresDatabase::Connect(location, db)
                                                  : SqliteDatabase::Connect(location, mode, db);
    if (!r.ok()) {
        result.Code = r.Code;
        result.Text = r.Text;
        return result;
    }
    if (mode == OpenMode::ConnectOnly) {
        r = db->Configure();
    } else {
        r = Migrator::Prepare(*db, mode == OpenMode::CreateIfMissing);
    }
    if (!r.ok()) {
        db->AbandonNewBook();
        result.Code = r.Code;
        result.Text = r.Text;
        return result;
    }
    result.Db = std::move(db);
    return result;
}

QString Database::BackendName() const {
    return Kind() == Backend::PostgreSQL ? QStringLiteral("PostgreSQL") : QStringLiteral("SQLite");
}

// ---- Transactions -------------------------------------------------------------------

namespace {
QString SavepointName(int level) {
    return QStringLiteral("orvo_level_%1").arg(level);
}
} // namespace

ResultRecord Database::Begin() {
    const int depth = failed_.size();
    ResultRecord r =
        ExecControl(depth == 0 ? BeginSql() : QStringLiteral("SAVEPOINT ") + SavepointName(depth));
    if (r.ok())
        failed_.push_back(false);
    return r;
}

ResultRecord Database::Commit() {
    const int depth = failed_.size();
    if (depth == 0)
        return ResultRecord::Failure(codes::Failed, messages::NoTransaction());
    if (failed_.back()) {
        Rollback();
        return ResultRecord::Failure(codes::Failed, messages::TransactionAborted());
    }
    ResultRecord r =
        ExecControl(depth == 1 ? QStringLiteral("COMMIT")
                               : QStringLiteral("RELEASE SAVEPOINT ") + SavepointName(depth - 1));
    if (!r.ok()) {
        // A commit the database refused (a deferred constraint, a busy book) leaves
        // nothing half done: the level is rolled back and the caller told why.
        failed_.back() = true;
        Rollback();
        return r;
    }
    failed_.pop_back();
    if (failed_.isEmpty())
        TransactionEnded();
    return r;
}

ResultRecord Database::Rollback() {
    const int depth = failed_.size();
    if (depth == 0)
        return ResultRecord::Failure(codes::Failed, messages::NoTransaction());
    failed_.pop_back();
    if (depth == 1) {
        const ResultRecord r = ExecControl(QStringLiteral("ROLLBACK"));
        TransactionEnded();
        return r;
    }
    const QString name = SavepointName(depth - 1);
    ResultRecord r = ExecControl(QStringLiteral("ROLLBACK TO SAVEPOINT ") + name);
    if (r.ok())
        r = ExecControl(QStringLiteral("RELEASE SAVEPOINT ") + name);
    return r;
}

void Database::NoteStatementFailure() {
    if (!failed_.isEmpty())
        failed_.back() = true;
}

// ---- Bulk insertion -----------------------------------------------------------------

namespace {
// Rows per statement, largest first: any count is made of these, so a table needs at
// most this many prepared shapes.
constexpr int kRowsPerStatement[] = {64, 32, 16, 8, 4, 2, 1};
} // namespace

ExecResult Database::InsertRows(const QString& table, const QStringList& columns,
                                const QVector<ValueArray>& rows) {
    ExecResult result;
    if (rows.isEmpty())
        return result;
    if (columns.isEmpty())
        return ExecResult::Failure(codes::Failed,
                                   messages::StatementFailed(QStringLiteral("INSERT ") + table));
    // The texts of each size are made once per table and columns.
    const QString key = table + QLatin1Char('\x1f') + columns.join(QLatin1Char('\x1f'));
    auto texts = insertSql_.find(key);
    if (texts == insertSql_.end()) {
        if (insertSql_.size() >= 64)
            insertSql_.clear();
        QStringList marks;
        for (int i = 0; i < columns.size(); ++i)
            marks.append(QStringLiteral("?"));
        const QString tuple =
            QLatin1Char('(') + marks.join(QStringLiteral(", ")) + QLatin1Char(')');
        const QString head = QStringLiteral("INSERT INTO %1 (%2) VALUES ")
                                 .arg(table, columns.join(QStringLiteral(", ")));
        QStringList sql;
        for (const int size : kRowsPerStatement) {
            QStringList tuples;
            for (int i = 0; i < size; ++i)
                tuples.append(tuple);
            sql.append(head + tuples.join(QStringLiteral(", ")));
        }
        texts = insertSql_.insert(key, sql);
    }
    const QStringList sql = texts.value();
    int at = 0;
    int shape = 0;
    ValueArray params;
    for (const int size : kRowsPerStatement) {
        const QString& text = sql.at(shape++);
        while (rows.size() - at >= size) {
            params.clear();
            params.reserve(size * columns.size());
            for (int i = at; i < at + size; ++i) {
                if (rows[i].size() != columns.size()) {
                    NoteStatementFailure();
                    return ExecResult::Failure(
                        codes::Failed,
                        messages::ParameterCount(int(columns.size()), int(rows[i].size())));
                }
                params.append(rows[i]);
            }
            const ExecResult r = Execute(text, params);
            if (!r.ok())
                return r;
            result.RowsAffected += r.RowsAffected;
            at += size;
        }
    }
    return result;
}

// ---- Schema -------------------------------------------------------------------------

ResultRecord Database::RunStatements(const QVector<Statement>& statements) {
    for (const Statement& s : statements) {
        ExecResult r = Execute(s.Sql, s.Params);
        if (!r.ok())
            return ResultRecord::Failure(r.Code, r.Text);
    }
    return ResultRecord::Success();
}

ResultRecord Database::CreateTable(const TableDef& table) {
    ResultRecord r = RunStatements(SchemaDdl::CreateTable(table, Kind()));
    if (r.ok())
        RegisterTable(table);
    return r;
}

ResultRecord Database::CreateIndex(const IndexDef& index) {
    return RunStatements(SchemaDdl::CreateIndex(index, Kind()));
}

ResultRecord Database::CreateSequence(const SequenceDef& sequence) {
    return RunStatements(SchemaDdl::CreateSequence(sequence, Kind()));
}

void Database::RegisterTable(const TableDef& table) {
    canonicalNames_.insert(table.Name.toLower(), table.Name);
    const QString prefix = table.Name.toLower() + QLatin1Char('.');
    for (const ColumnDef& c : table.Columns) {
        canonicalNames_.insert(c.Name.toLower(), c.Name);
        if (c.Type == ColumnType::Date || c.Type == ColumnType::DateTime)
            columnTypes_.insert(prefix + c.Name.toLower(), c.Type);
    }
    ++schemaGeneration_;
}

ColumnType Database::KnownColumnType(const QString& table, const QString& column,
                                     ColumnType fallback) const {
    return columnTypes_.value(table.toLower() + QLatin1Char('.') + column.toLower(), fallback);
}

QString Database::CanonicalName(const QString& name) const {
    return canonicalNames_.value(name.toLower(), name);
}

} // namespace orvo::host
