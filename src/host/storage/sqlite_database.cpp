#include "host/storage/sqlite_database.h"

#include "host/storage/migrations.h"
#include "host/storage/row_cursor.h"
#include "host/storage/schema_ddl.h"
#include "host/storage/storage_messages.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <limits>
#include <sqlite3.h>

namespace orvo::host {

using namespace storage;

namespace {

// The cache is dropped whole when it grows past this many statements: only SQL built
// with a varying shape (IN lists) can get there, and re-preparing is cheap.
constexpr int kCacheLimit = 256;
constexpr int kBusyTimeoutMs = 10000;

// Writable for this program and not marked read-only: a file without any write
// permission bit is a read-only book even to the superuser, who could write it anyway.
bool IsWritable(const QString& path) {
    const QFileInfo info(path);
    const QFile::Permissions any = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return info.isWritable() && (info.permissions() & any);
}

Value WholeNumber(sqlite3_int64 v) {
    if (v >= std::numeric_limits<qint32>::min() && v <= std::numeric_limits<qint32>::max())
        return Value(static_cast<qint32>(v));
    return Value(static_cast<double>(v));
}

// 'YYYY-MM-DD' without going through a date format: batches bind a date in most rows.
QByteArray IsoDate(const QDate& d) {
    const int y = d.year(), m = d.month(), day = d.day();
    if (y < 1 || y > 9999)
        return d.toString(Qt::ISODate).toLatin1();
    const char text[10] = {char('0' + y / 1000),
                           char('0' + y / 100 % 10),
                           char('0' + y / 10 % 10),
                           char('0' + y % 10),
                           '-',
                           char('0' + m / 10),
                           char('0' + m % 10),
                           '-',
                           char('0' + day / 10),
                           char('0' + day % 10)};
    return QByteArray(text, 10);
}

} // namespace

SqliteDatabase::SqliteDatabase(sqlite3* db, const QString& path, bool createdFile)
    : Database(path), db_(db), path_(path), createdFile_(createdFile) {}

SqliteDatabase::~SqliteDatabase() {
    ClearCache();
    if (db_)
        sqlite3_close_v2(db_);
}

ResultRecord SqliteDatabase::Connect(const QString& path, OpenMode mode, DatabasePtr& out) {
    if (path.isEmpty())
        return ResultRecord::Failure(codes::BookMissing, messages::BookMissing(path));
    const QFileInfo info(path);
    const QString folder = info.absolutePath();
    bool create = false;
    if (info.exists()) {
        if (info.isDir())
            return ResultRecord::Failure(codes::NotABook, messages::NotABook(path));
        if (!IsWritable(path))
            return ResultRecord::Failure(codes::ReadOnly, messages::FileReadOnly(path));
        if (!IsWritable(folder))
            return ResultRecord::Failure(codes::ReadOnly, messages::FolderReadOnly(folder));
    } else {
        if (mode == OpenMode::Existing)
            return ResultRecord::Failure(codes::BookMissing, messages::BookMissing(path));
        if (!QFileInfo(folder).isDir())
            return ResultRecord::Failure(codes::BookMissing, messages::FolderMissing(folder));
        if (!IsWritable(folder))
            return ResultRecord::Failure(codes::ReadOnly, messages::FolderReadOnly(folder));
        create = true;
    }

    sqlite3* db = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0) |
                      SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int rc = sqlite3_open_v2(path.toUtf8().constData(), &db, flags, nullptr);
    if (rc != SQLITE_OK) {
        const QString reason = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString();
        sqlite3_close_v2(db);
        if (create)
            QFile::remove(path);
        return ResultRecord::Failure(
            codes::Failed, messages::StatementFailed(reason + QStringLiteral(": ") + path));
    }
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, kBusyTimeoutMs);
    if (sqlite3_db_readonly(db, "main") == 1) {
        sqlite3_close_v2(db);
        return ResultRecord::Failure(codes::ReadOnly, messages::FileReadOnly(path));
    }
    out.reset(new SqliteDatabase(db, path, create));
    return ResultRecord::Success();
}

// ---- Book checks and connection settings -------------------------------------------

ResultRecord SqliteDatabase::ReadSchemaStamp(SchemaStamp& stamp) {
    // The first read of the file: a file that is not an SQLite database fails here,
    // before anything has been written to it.
    QueryResult id = Query(QStringLiteral("PRAGMA application_id"));
    QueryResult version = id.ok() ? Query(QStringLiteral("PRAGMA user_version")) : id;
    QueryResult tables =
        version.ok() ? Query(QStringLiteral("SELECT count(*) FROM sqlite_schema")) : version;
    if (!tables.ok()) {
        const int primary = sqlite3_errcode(db_) & 0xff;
        if (primary == SQLITE_NOTADB || primary == SQLITE_CORRUPT)
            return ResultRecord::Failure(codes::NotABook, messages::Corrupt(path_));
        return ResultRecord::Failure(tables.Code, tables.Text);
    }
    stamp.ApplicationId = id.Scalar().toInt32();
    stamp.Version = version.Scalar().toInt32();
    stamp.Empty = tables.Scalar().toInt32() == 0;
    return ResultRecord::Success();
}

ResultRecord SqliteDatabase::WriteSchemaStamp(int version) {
    // PRAGMA takes no parameters; both numbers are this program's own constants.
    ResultRecord r = ExecControl(QStringLiteral("PRAGMA application_id = %1").arg(kApplicationId));
    if (r.ok())
        r = ExecControl(QStringLiteral("PRAGMA user_version = %1").arg(version));
    return r;
}

ResultRecord SqliteDatabase::Configure() {
    QueryResult mode = Query(QStringLiteral("PRAGMA journal_mode = WAL"));
    if (!mode.ok())
        return ResultRecord::Failure(mode.Code, mode.Text);
    if (mode.Scalar().toString().compare(QLatin1String("wal"), Qt::CaseInsensitive) != 0) {
        return ResultRecord::Failure(codes::Failed,
                                     messages::StatementFailed(QStringLiteral("journal_mode = ") +
                                                               mode.Scalar().toString()));
    }
    ResultRecord r = ExecControl(QStringLiteral("PRAGMA synchronous = FULL"));
    if (r.ok())
        r = ExecControl(QStringLiteral("PRAGMA foreign_keys = ON"));
    // What undoes a statement or a savepoint stays in memory instead of a temporary file
    // written page by page; the cache is in KiB when negative.
    if (r.ok())
        r = ExecControl(QStringLiteral("PRAGMA temp_store = MEMORY"));
    if (r.ok())
        r = ExecControl(QStringLiteral("PRAGMA cache_size = -32768"));
    // Reads go through a memory map of the file rather than a copy of every page read, a
    // large share of a long list's time over a large book; SQLite caps the size it takes.
    if (r.ok())
        r = ExecControl(QStringLiteral("PRAGMA mmap_size = 1073741824"));
    return r;
}

void SqliteDatabase::AbandonNewBook() {
    if (!createdFile_)
        return;
    ClearCache();
    sqlite3_close_v2(db_);
    db_ = nullptr;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        QFile::remove(path_ + QLatin1String(suffix));
}

// ---- Statements ---------------------------------------------------------------------

QString SqliteDatabase::LastError() const {
    return QString::fromUtf8(sqlite3_errmsg(db_));
}

ExecResult SqliteDatabase::Fail(const QString& reason) {
    NoteStatementFailure();
    return ExecResult::Failure(codes::Failed, messages::StatementFailed(reason));
}

void SqliteDatabase::ClearCache() {
    for (Prepared* p : std::as_const(cache_)) {
        sqlite3_finalize(p->Stmt);
        delete p;
    }
    cache_.clear();
}

ResultRecord SqliteDatabase::ExecControl(const QString& sql) {
    if (!db_)
        return ResultRecord::Failure(codes::Failed, messages::StatementFailed(path_));
    if (sql.startsWith(QLatin1String("SAVEPOINT ")) || sql.startsWith(QLatin1String("RELEASE ")) ||
        sql.startsWith(QLatin1String("ROLLBACK")) || sql == BeginSql() ||
        sql == QLatin1String("COMMIT")) {
        // Every save opens and closes a level: these few texts are prepared once.
        QString error;
        Prepared* p = Prepare(sql, &error);
        if (p && StepToEnd(p->Stmt, &error))
            return ResultRecord::Success();
        return ResultRecord::Failure(codes::Failed, messages::StatementFailed(error));
    }
    char* error = nullptr;
    const int rc = sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, &error);
    if (rc == SQLITE_OK)
        return ResultRecord::Success();
    const QString reason = error ? QString::fromUtf8(error) : LastError();
    sqlite3_free(error);
    return ResultRecord::Failure(codes::Failed, messages::StatementFailed(reason));
}

SqliteDatabase::Prepared* SqliteDatabase::Prepare(const QString& sql, QString* error) {
    if (!db_) {
        *error = path_;
        return nullptr;
    }
    if (Prepared* p = cache_.value(sql))
        return p;
    if (cache_.size() >= kCacheLimit)
        ClearCache();
    sqlite3_stmt* stmt = nullptr;
    const QByteArray text = sql.toUtf8();
    const int rc = sqlite3_prepare_v3(db_, text.constData(), int(text.size()),
                                      SQLITE_PREPARE_PERSISTENT, &stmt, nullptr);
    if (rc != SQLITE_OK || !stmt) {
        *error = rc != SQLITE_OK ? LastError() : QStringLiteral("empty statement");
        sqlite3_finalize(stmt);
        return nullptr;
    }
    auto* p = new Prepared;
    p->Stmt = stmt;
    cache_.insert(sql, p);
    return p;
}

void SqliteDatabase::DescribeColumns(Prepared& p) {
    // SQLite re-prepares a statement by itself after a schema change, so SELECT * may
    // gain columns without a new registration: the count is checked too.
    const int n = sqlite3_column_count(p.Stmt);
    if (p.Generation == SchemaGeneration() && n == p.Columns.size())
        return;
    p.Columns.clear();
    p.Types.clear();
    for (int i = 0; i < n; ++i) {
        p.Columns << CanonicalName(QString::fromUtf8(sqlite3_column_name(p.Stmt, i)));
        const char* table = sqlite3_column_table_name(p.Stmt, i);
        const char* origin = sqlite3_column_origin_name(p.Stmt, i);
        ColumnType type = ColumnType::Text;
        if (table && origin && HasDateColumns()) {
            type = KnownColumnType(QString::fromUtf8(table), QString::fromUtf8(origin),
                                   ColumnType::Text);
        }
        p.Types << type;
    }
    p.Generation = SchemaGeneration();
}

bool SqliteDatabase::Bind(sqlite3_stmt* stmt, const ValueArray& params, QVector<QByteArray>& holder,
                          QString* error) {
    const int expected = sqlite3_bind_parameter_count(stmt);
    if (expected != params.size()) {
        *error = messages::ParameterCount(expected, int(params.size()));
        return false;
    }
    holder.resize(params.size());
    for (int i = 0; i < params.size(); ++i) {
        const Value& v = params[i];
        const int at = i + 1;
        int rc = SQLITE_OK;
        switch (v.kind()) {
        case Value::Kind::Null:
            rc = sqlite3_bind_null(stmt, at);
            break;
        case Value::Kind::Bool:
            rc = sqlite3_bind_int(stmt, at, v.toBool() ? 1 : 0);
            break;
        case Value::Kind::Int16:
        case Value::Kind::Int32:
            rc = sqlite3_bind_int64(stmt, at, v.toInt32());
            break;
        case Value::Kind::Double:
            rc = sqlite3_bind_double(stmt, at, v.toDouble());
            break;
        case Value::Kind::Text:
        case Value::Kind::Date:
        case Value::Kind::DateTime:
            if (v.kind() == Value::Kind::Date)
                holder[i] = IsoDate(v.toDate());
            else if (v.kind() == Value::Kind::DateTime)
                holder[i] = v.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8();
            else
                holder[i] = v.toString().toUtf8();
            rc = sqlite3_bind_text(stmt, at, holder[i].constData(), int(holder[i].size()),
                                   SQLITE_STATIC);
            break;
        default:
            *error = messages::UnsupportedParameter(at, Value::KindName(v.kind()));
            sqlite3_clear_bindings(stmt);
            return false;
        }
        if (rc != SQLITE_OK) {
            *error = LastError();
            sqlite3_clear_bindings(stmt);
            return false;
        }
    }
    return true;
}

bool SqliteDatabase::StepToEnd(sqlite3_stmt* stmt, QString* error) {
    int rc;
    do {
        rc = sqlite3_step(stmt);
    } while (rc == SQLITE_ROW);
    const bool ok = rc == SQLITE_DONE;
    if (!ok)
        *error = LastError();
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    return ok;
}

ExecResult SqliteDatabase::Execute(const QString& sql, const ValueArray& params) {
    QString error;
    Prepared* p = Prepare(sql, &error);
    if (!p)
        return Fail(error);
    QVector<QByteArray> holder;
    if (!Bind(p->Stmt, params, holder, &error))
        return Fail(error);
    if (!StepToEnd(p->Stmt, &error))
        return Fail(error);
    ExecResult r;
    r.RowsAffected = sqlite3_changes64(db_);
    return r;
}

ExecResult SqliteDatabase::ExecuteMany(const QString& sql, const QVector<ValueArray>& rows) {
    QString error;
    Prepared* p = Prepare(sql, &error);
    if (!p)
        return Fail(error);
    ResultRecord begun = Begin();
    if (!begun.ok())
        return ExecResult::Failure(begun.Code, begun.Text);
    ExecResult result;
    QVector<QByteArray> holder;
    for (const ValueArray& row : rows) {
        if (!Bind(p->Stmt, row, holder, &error) || !StepToEnd(p->Stmt, &error)) {
            ExecResult failed = Fail(error);
            Rollback();
            return failed;
        }
        result.RowsAffected += sqlite3_changes64(db_);
    }
    ResultRecord committed = Commit();
    if (!committed.ok())
        return ExecResult::Failure(committed.Code, committed.Text);
    return result;
}

QueryResult SqliteDatabase::Query(const QString& sql, const ValueArray& params,
                                  const QStringList& dateColumns) {
    QString error;
    Prepared* p = Prepare(sql, &error);
    QVector<QByteArray> holder;
    if (!p || !Bind(p->Stmt, params, holder, &error)) {
        NoteStatementFailure();
        return QueryResult::Failure(codes::Failed, messages::StatementFailed(error));
    }
    DescribeColumns(*p);
    QueryResult result;
    result.Columns = p->Columns;
    QVector<ColumnType> types = p->Types;
    for (const QString& hinted : dateColumns) {
        const int i = result.ColumnIndex(hinted);
        if (i >= 0)
            types[i] = ColumnType::Date;
    }
    const int n = types.size();
    sqlite3_stmt* stmt = p->Stmt;
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        ValueArray row;
        row.reserve(n);
        for (int i = 0; i < n; ++i) {
            switch (sqlite3_column_type(stmt, i)) {
            case SQLITE_INTEGER:
                row << WholeNumber(sqlite3_column_int64(stmt, i));
                break;
            case SQLITE_FLOAT:
                row << Value(sqlite3_column_double(stmt, i));
                break;
            case SQLITE_NULL:
                row << Value();
                break;
            default: {
                const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(stmt, i));
                const int size = sqlite3_column_bytes(stmt, i);
                if (types[i] == ColumnType::Date) {
                    // Dates are stored as YYYY-MM-DD: read straight from the bytes, since a
                    // list of debts or entries reads one in every row.
                    const QDate d = RowCursor::IsoDate(bytes, size);
                    if (d.isValid()) {
                        row << Value(d);
                        break;
                    }
                }
                const QString text = QString::fromUtf8(bytes, size);
                if (types[i] == ColumnType::Date) {
                    const QDate d = QDate::fromString(text, Qt::ISODate);
                    row << (d.isValid() ? Value(d) : Value(text));
                } else if (types[i] == ColumnType::DateTime) {
                    const QDateTime dt = QDateTime::fromString(
                        QString(text).replace(QLatin1Char(' '), QLatin1Char('T')), Qt::ISODate);
                    row << (dt.isValid() ? Value(dt) : Value(text));
                } else {
                    row << Value(text);
                }
            }
            }
        }
        result.Rows << row;
    }
    if (rc != SQLITE_DONE) {
        error = LastError();
        sqlite3_reset(stmt);
        sqlite3_clear_bindings(stmt);
        NoteStatementFailure();
        return QueryResult::Failure(codes::Failed, messages::StatementFailed(error));
    }
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    return result;
}

namespace {

// A row of a statement standing on SQLITE_ROW. Each read is one or two calls into SQLite,
// which lets it convert: an integer asked as text gives its decimal text, Null gives no
// text and 0, a fraction asked as a whole number is cut toward zero.
class SqliteRowCursor final : public RowCursor {
public:
    explicit SqliteRowCursor(sqlite3_stmt* stmt)
        : stmt_(stmt), columns_(sqlite3_column_count(stmt)) {}

    int ColumnCount() const override { return columns_; }
    bool IsNull(int c) const override {
        return !inRange(c) || sqlite3_column_type(stmt_, c) == SQLITE_NULL;
    }
    qint64 Int64(int c) const override { return inRange(c) ? sqlite3_column_int64(stmt_, c) : 0; }
    double Double(int c) const override {
        return inRange(c) ? sqlite3_column_double(stmt_, c) : 0.0;
    }
    QDate Date(int c) const override {
        const char* data = nullptr;
        int size = 0;
        return TextBytes(c, &data, &size) ? IsoDate(data, size) : QDate();
    }

protected:
    bool TextBytes(int c, const char** data, int* size) const override {
        if (!inRange(c))
            return false;
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, c));
        if (!text)
            return false;
        *data = text;
        *size = sqlite3_column_bytes(stmt_, c);
        return true;
    }
    QString OtherText(int) const override { return QString(); }

private:
    bool inRange(int c) const { return c >= 0 && c < columns_; }

    sqlite3_stmt* stmt_;
    int columns_;
};

} // namespace

ResultRecord SqliteDatabase::QueryEach(const QString& sql, const ValueArray& params,
                                       const RowVisitor& visit) {
    QString error;
    Prepared* p = Prepare(sql, &error);
    QVector<QByteArray> holder;
    if (!p || !Bind(p->Stmt, params, holder, &error)) {
        NoteStatementFailure();
        return ResultRecord::Failure(codes::Failed, messages::StatementFailed(error));
    }
    sqlite3_stmt* stmt = p->Stmt;
    const SqliteRowCursor cursor(stmt);
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        if (!visit(cursor)) {
            rc = SQLITE_DONE;
            break;
        }
    }
    if (rc != SQLITE_DONE)
        error = LastError();
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    if (rc != SQLITE_DONE) {
        NoteStatementFailure();
        return ResultRecord::Failure(codes::Failed, messages::StatementFailed(error));
    }
    return ResultRecord::Success();
}

// ---- Identifiers --------------------------------------------------------------------

IdsResult SqliteDatabase::NextIds(const QString& sequence, int count) {
    IdsResult result;
    if (count <= 0)
        return result;
    QueryResult q = Query(QStringLiteral("UPDATE %1 SET LastValue = LastValue + ? WHERE Name = ? "
                                         "RETURNING LastValue")
                              .arg(SchemaDdl::SqliteSequenceTable()),
                          {Value(qint32(count)), Value(sequence)});
    if (!q.ok() || q.RowCount() == 0) {
        result.Code = codes::Failed;
        result.Text = messages::UnknownSequence(sequence);
        if (!q.ok())
            result.Text += QLatin1Char('\n') + q.Text;
        else
            NoteStatementFailure();
        return result;
    }
    const qint64 last = static_cast<qint64>(q.Scalar().toDouble());
    result.Ids.reserve(count);
    for (qint64 id = last - count + 1; id <= last; ++id)
        result.Ids << id;
    return result;
}

IdsResult SqliteDatabase::ReserveRowIds(const QString& table, int count) {
    IdsResult result;
    if (count <= 0)
        return result;
    if (TransactionDepth() == 0) {
        result.Code = codes::Failed;
        result.Text = messages::StatementFailed(
            QStringLiteral("row numbers of %1 reserved outside a transaction").arg(table));
        return result;
    }
    // The table's name is the program's own (a registered table), never a user's value.
    const QueryResult q =
        Query(QStringLiteral("SELECT COALESCE(MAX(ID), 0) FROM %1").arg(CanonicalName(table)));
    if (!q.ok()) {
        result.Code = q.Code;
        result.Text = q.Text;
        return result;
    }
    const QString key = table.toLower();
    const qint64 first =
        std::max(static_cast<qint64>(q.Scalar().toDouble()) + 1, reserved_.value(key, 0));
    reserved_.insert(key, first + count);
    result.Ids.reserve(count);
    for (qint64 id = first; id < first + count; ++id)
        result.Ids << id;
    return result;
}

IdResult SqliteDatabase::NextId(const QString& sequence) {
    IdsResult r = NextIds(sequence, 1);
    return {r.Code, r.Text, r.ok() ? r.Ids.constFirst() : 0};
}

} // namespace orvo::host
