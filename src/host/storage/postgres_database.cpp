#include "host/storage/postgres_database.h"

#include "host/storage/migrations.h"
#include "host/storage/placeholders.h"
#include "host/storage/storage_messages.h"

#include <algorithm>
#include <cmath>
#include <libpq-fe.h>
#include <limits>

namespace orvo::host {

using namespace storage;

namespace {

// Type numbers of PostgreSQL's built-in types (pg_type.oid); they never change.
constexpr Oid kBool = 16;
constexpr Oid kInt8 = 20;
constexpr Oid kInt2 = 21;
constexpr Oid kInt4 = 23;
constexpr Oid kOid = 26;
constexpr Oid kFloat4 = 700;
constexpr Oid kFloat8 = 701;
constexpr Oid kDate = 1082;
constexpr Oid kTimestamp = 1114;
constexpr Oid kTimestampTz = 1184;
constexpr Oid kNumeric = 1700;
constexpr Oid kUnknown = 0;

// Rows sent in one pipeline round before their results are read; small enough that the
// answers fit the socket's buffers, large enough to hide the round trips.
constexpr int kPipelineChunk = 500;

void IgnoreNotice(void*, const char*) {}

Value WholeNumber(qint64 v) {
    if (v >= std::numeric_limits<qint32>::min() && v <= std::numeric_limits<qint32>::max())
        return Value(static_cast<qint32>(v));
    return Value(static_cast<double>(v));
}

Value Fraction(const QByteArray& text) {
    if (text == "NaN")
        return Value(std::numeric_limits<double>::quiet_NaN());
    if (text == "Infinity")
        return Value(std::numeric_limits<double>::infinity());
    if (text == "-Infinity")
        return Value(-std::numeric_limits<double>::infinity());
    return Value(text.toDouble());
}

Value ReadCell(Oid type, const char* data, int length) {
    const QByteArray text = QByteArray::fromRawData(data, length);
    switch (type) {
    case kBool:
        return Value(text == "t");
    case kInt2:
    case kInt4:
    case kInt8:
    case kOid:
        return WholeNumber(text.toLongLong());
    case kFloat4:
    case kFloat8:
        return Fraction(text);
    case kNumeric: {
        bool ok = false;
        const qint64 whole = text.toLongLong(&ok);
        return ok ? WholeNumber(whole) : Fraction(text);
    }
    case kDate: {
        const QDate d = QDate::fromString(QString::fromLatin1(text), Qt::ISODate);
        return d.isValid() ? Value(d) : Value(QString::fromLatin1(text));
    }
    case kTimestamp:
    case kTimestampTz: {
        QString t = QString::fromLatin1(text);
        t.replace(QLatin1Char(' '), QLatin1Char('T'));
        const QDateTime dt = QDateTime::fromString(t, Qt::ISODate);
        return dt.isValid() ? Value(dt) : Value(QString::fromLatin1(text));
    }
    default:
        return Value(QString::fromUtf8(data, length));
    }
}

} // namespace

PostgresDatabase::PostgresDatabase(pg_conn* conn, const QString& displayLocation)
    : Database(displayLocation), conn_(conn) {}

PostgresDatabase::~PostgresDatabase() {
    if (conn_)
        PQfinish(conn_);
}

ResultRecord PostgresDatabase::Connect(const QString& location, DatabasePtr& out) {
    const QString shown = DisplayLocation(location);
    const QByteArray conninfo = location.toUtf8();
    // Defaults first: what the connection string itself says comes later and wins.
    const char* keywords[] = {"connect_timeout", "application_name", "client_encoding", "dbname",
                              nullptr};
    const char* values[] = {"10", "orvo-apskaita", "UTF8", conninfo.constData(), nullptr};
    PGconn* conn = PQconnectdbParams(keywords, values, 1);
    if (!conn)
        return ResultRecord::Failure(codes::ConnectionFailed,
                                     messages::ConnectionFailed(shown, {}));
    if (PQstatus(conn) != CONNECTION_OK) {
        QString reason = QString::fromUtf8(PQerrorMessage(conn)).simplified();
        PQfinish(conn);
        return ResultRecord::Failure(codes::ConnectionFailed,
                                     messages::ConnectionFailed(shown, reason));
    }
    PQsetNoticeProcessor(conn, IgnoreNotice, nullptr);
    auto* db = new PostgresDatabase(conn, shown);
    out.reset(db);
    // Fixed settings of the session: dates read back as YYYY-MM-DD and doubles with all
    // their digits.
    for (const char* setting : {"SET datestyle = 'ISO, YMD'", "SET extra_float_digits = 3",
                                "SET client_min_messages = warning"}) {
        ResultRecord r = db->ExecControl(QString::fromLatin1(setting));
        if (!r.ok()) {
            out.reset();
            return ResultRecord::Failure(codes::ConnectionFailed,
                                         messages::ConnectionFailed(shown, r.Text));
        }
    }
    return ResultRecord::Success();
}

QString PostgresDatabase::ConnectionError() const {
    return QString::fromUtf8(PQerrorMessage(conn_)).trimmed();
}

// ---- Book checks --------------------------------------------------------------------

ResultRecord PostgresDatabase::ReadSchemaStamp(SchemaStamp& stamp) {
    QueryResult exists =
        Query(QStringLiteral("SELECT to_regclass(?) IS NOT NULL"), {Value("schema_version")});
    if (!exists.ok())
        return ResultRecord::Failure(exists.Code, exists.Text);
    stamp = SchemaStamp();
    if (exists.Scalar().toBool()) {
        QueryResult row =
            Query(QStringLiteral("SELECT ApplicationID, Version FROM schema_version"));
        if (!row.ok())
            return ResultRecord::Failure(row.Code, row.Text);
        stamp.ApplicationId = row.At(0, 0).toInt32();
        stamp.Version = row.At(0, 1).toInt32();
    }
    QueryResult objects = Query(
        QStringLiteral("SELECT count(*) FROM pg_catalog.pg_class c "
                       "JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace "
                       "WHERE n.nspname = current_schema() AND c.relkind IN ('r', 'S', 'v', 'p')"));
    if (!objects.ok())
        return ResultRecord::Failure(objects.Code, objects.Text);
    stamp.Empty = objects.Scalar().toInt32() == 0;
    return ResultRecord::Success();
}

ResultRecord PostgresDatabase::WriteSchemaStamp(int version) {
    const Statement steps[] = {
        {QStringLiteral(
             "CREATE TABLE IF NOT EXISTS schema_version (ApplicationID INTEGER NOT NULL, "
             "Version INTEGER NOT NULL)"),
         {}},
        {QStringLiteral("DELETE FROM schema_version"), {}},
        {QStringLiteral("INSERT INTO schema_version (ApplicationID, Version) VALUES (?, ?)"),
         {Value(kApplicationId), Value(qint32(version))}},
    };
    for (const Statement& s : steps) {
        ExecResult r = Execute(s.Sql, s.Params);
        if (!r.ok())
            return ResultRecord::Failure(r.Code, r.Text);
    }
    return ResultRecord::Success();
}

ResultRecord PostgresDatabase::LockForMigration() {
    QueryResult r =
        Query(QStringLiteral("SELECT pg_advisory_xact_lock(?)"), {Value(kApplicationId)});
    return r.ok() ? ResultRecord::Success() : ResultRecord::Failure(r.Code, r.Text);
}

// ---- Statements ---------------------------------------------------------------------

ResultRecord PostgresDatabase::ExecControl(const QString& sql) {
    PGresult* res = PQexec(conn_, sql.toUtf8().constData());
    const ExecStatusType status = PQresultStatus(res);
    QString error;
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
        error = res ? QString::fromUtf8(PQresultErrorMessage(res)).trimmed() : ConnectionError();
    PQclear(res);
    if (!error.isEmpty())
        return ResultRecord::Failure(codes::Failed, messages::StatementFailed(error));
    return ResultRecord::Success();
}

bool PostgresDatabase::Convert(const ValueArray& params, Params& out, QString* error) const {
    const int n = params.size();
    out.Texts.resize(n);
    out.Values.resize(n);
    out.Types.resize(n);
    out.Signature.resize(n);
    for (int i = 0; i < n; ++i) {
        const Value& v = params[i];
        Oid type = kUnknown;
        char mark = 'u';
        QByteArray& text = out.Texts[i];
        switch (v.kind()) {
        case Value::Kind::Null:
            break;
        case Value::Kind::Bool:
            type = kInt8;
            mark = 'i';
            text = v.toBool() ? "1" : "0";
            break;
        case Value::Kind::Int16:
        case Value::Kind::Int32:
            type = kInt8;
            mark = 'i';
            text = QByteArray::number(v.toInt32());
            break;
        case Value::Kind::Double: {
            type = kFloat8;
            mark = 'f';
            const double d = v.toDouble();
            if (std::isnan(d))
                text = "NaN";
            else if (std::isinf(d))
                text = d > 0 ? "Infinity" : "-Infinity";
            else
                text = QByteArray::number(d, 'g', 17);
            break;
        }
        case Value::Kind::Text:
            text = v.toString().toUtf8();
            break;
        case Value::Kind::Date:
            type = kDate;
            mark = 'd';
            text = v.toString().toLatin1();
            break;
        case Value::Kind::DateTime:
            type = kTimestamp;
            mark = 't';
            text = v.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toLatin1();
            break;
        default:
            *error = messages::UnsupportedParameter(i + 1, Value::KindName(v.kind()));
            return false;
        }
        out.Types[i] = type;
        out.Signature[i] = mark;
        out.Values[i] = v.isNull() ? nullptr : text.constData();
    }
    return true;
}

bool PostgresDatabase::Prepare(const QString& sql, const Params& params, QByteArray* name,
                               QString* error) {
    const QByteArray key = sql.toUtf8() + '\x1f' + params.Signature;
    const auto found = prepared_.constFind(key);
    if (found != prepared_.constEnd()) {
        *name = found.value();
        return true;
    }
    int count = 0;
    const QString numbered = NumberPlaceholders(sql, &count);
    if (count != params.Values.size()) {
        *error = messages::ParameterCount(count, int(params.Values.size()));
        return false;
    }
    const QByteArray statement = "orvo_" + QByteArray::number(++statementCounter_);
    PGresult* res = PQprepare(conn_, statement.constData(), numbered.toUtf8().constData(), count,
                              params.Types.constData());
    const bool ok = PQresultStatus(res) == PGRES_COMMAND_OK;
    if (!ok)
        *error = res ? QString::fromUtf8(PQresultErrorMessage(res)).trimmed() : ConnectionError();
    PQclear(res);
    if (!ok)
        return false;
    prepared_.insert(key, statement);
    *name = statement;
    return true;
}

PGresult* PostgresDatabase::Run(const QString& sql, const ValueArray& params, QString* error) {
    PGresult* res = nullptr;
    if (params.isEmpty()) {
        // Without parameters nothing is worth keeping prepared: a one-off statement,
        // schema changes among them.
        int count = 0;
        const QString numbered = NumberPlaceholders(sql, &count);
        if (count != 0) {
            *error = messages::ParameterCount(count, 0);
            NoteStatementFailure();
            return nullptr;
        }
        res = PQexecParams(conn_, numbered.toUtf8().constData(), 0, nullptr, nullptr, nullptr,
                           nullptr, 0);
    } else {
        Params p;
        QByteArray name;
        if (!Convert(params, p, error) || !Prepare(sql, p, &name, error)) {
            NoteStatementFailure();
            return nullptr;
        }
        res = PQexecPrepared(conn_, name.constData(), int(p.Values.size()), p.Values.constData(),
                             nullptr, nullptr, 0);
    }
    const ExecStatusType status = PQresultStatus(res);
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
        return res;
    *error = res ? QString::fromUtf8(PQresultErrorMessage(res)).trimmed() : ConnectionError();
    PQclear(res);
    NoteStatementFailure();
    return nullptr;
}

ExecResult PostgresDatabase::Execute(const QString& sql, const ValueArray& params) {
    QString error;
    PGresult* res = Run(sql, params, &error);
    if (!res)
        return ExecResult::Failure(codes::Failed, messages::StatementFailed(error));
    ExecResult r;
    r.RowsAffected = QByteArray(PQcmdTuples(res)).toLongLong();
    PQclear(res);
    return r;
}

QueryResult PostgresDatabase::Query(const QString& sql, const ValueArray& params,
                                    const QStringList& dateColumns) {
    QString error;
    PGresult* res = Run(sql, params, &error);
    if (!res)
        return QueryResult::Failure(codes::Failed, messages::StatementFailed(error));
    QueryResult r = ReadRows(res, dateColumns);
    PQclear(res);
    return r;
}

QueryResult PostgresDatabase::ReadRows(PGresult* res, const QStringList& dateColumns) const {
    QueryResult result;
    const int columns = PQnfields(res);
    QVector<Oid> types(columns);
    for (int c = 0; c < columns; ++c) {
        result.Columns << CanonicalName(QString::fromUtf8(PQfname(res, c)));
        types[c] = PQftype(res, c);
    }
    for (const QString& hinted : dateColumns) {
        const int c = result.ColumnIndex(hinted);
        if (c >= 0 && types[c] != kDate && types[c] != kTimestamp && types[c] != kTimestampTz)
            types[c] = kDate;
    }
    const int rows = PQntuples(res);
    result.Rows.reserve(rows);
    for (int r = 0; r < rows; ++r) {
        ValueArray row;
        row.reserve(columns);
        for (int c = 0; c < columns; ++c) {
            if (PQgetisnull(res, r, c))
                row << Value();
            else
                row << ReadCell(types[c], PQgetvalue(res, r, c), PQgetlength(res, r, c));
        }
        result.Rows << row;
    }
    return result;
}

namespace {

// A row of a result in text format, which is how this connection reads every result.
class PostgresRowCursor final : public RowCursor {
public:
    PostgresRowCursor(PGresult* res, const QVector<Oid>& types) : res_(res), types_(types) {}

    void SetRow(int row) { row_ = row; }
    int ColumnCount() const override { return types_.size(); }
    bool IsNull(int c) const override {
        return c < 0 || c >= types_.size() || PQgetisnull(res_, row_, c);
    }
    qint64 Int64(int c) const override {
        if (IsNull(c))
            return 0;
        switch (types_[c]) {
        case kInt2:
        case kInt4:
        case kInt8:
        case kOid:
            return bytes(c).toLongLong();
        default:
            return qint64(cell(c).toDouble());
        }
    }
    double Double(int c) const override { return IsNull(c) ? 0.0 : cell(c).toDouble(); }
    QDate Date(int c) const override {
        if (IsNull(c))
            return QDate();
        return IsoDate(PQgetvalue(res_, row_, c), PQgetlength(res_, row_, c));
    }

protected:
    bool TextBytes(int c, const char** data, int* size) const override {
        if (IsNull(c) || !isText(types_[c]))
            return false;
        *data = PQgetvalue(res_, row_, c);
        *size = PQgetlength(res_, row_, c);
        return true;
    }
    QString OtherText(int c) const override { return IsNull(c) ? QString() : cell(c).toString(); }

private:
    static bool isText(Oid type) {
        switch (type) {
        case kBool:
        case kInt2:
        case kInt4:
        case kInt8:
        case kOid:
        case kFloat4:
        case kFloat8:
        case kNumeric:
        case kDate:
        case kTimestamp:
        case kTimestampTz:
            return false;
        default:
            return true;
        }
    }
    QByteArray bytes(int c) const {
        return QByteArray::fromRawData(PQgetvalue(res_, row_, c), PQgetlength(res_, row_, c));
    }
    Value cell(int c) const {
        return ReadCell(types_[c], PQgetvalue(res_, row_, c), PQgetlength(res_, row_, c));
    }

    PGresult* res_;
    const QVector<Oid>& types_;
    int row_ = 0;
};

} // namespace

ResultRecord PostgresDatabase::QueryEach(const QString& sql, const ValueArray& params,
                                         const RowVisitor& visit) {
    QString error;
    PGresult* res = Run(sql, params, &error);
    if (!res)
        return ResultRecord::Failure(codes::Failed, messages::StatementFailed(error));
    QVector<Oid> types(PQnfields(res));
    for (int c = 0; c < types.size(); ++c)
        types[c] = PQftype(res, c);
    PostgresRowCursor cursor(res, types);
    const int rows = PQntuples(res);
    for (int r = 0; r < rows; ++r) {
        cursor.SetRow(r);
        if (!visit(cursor))
            break;
    }
    PQclear(res);
    return ResultRecord::Success();
}

ExecResult PostgresDatabase::ExecuteMany(const QString& sql, const QVector<ValueArray>& rows) {
    if (rows.isEmpty())
        return ExecResult();
    ResultRecord begun = Begin();
    if (!begun.ok())
        return ExecResult::Failure(begun.Code, begun.Text);
    const ExecResult result = Pipeline(sql, rows);
    if (!result.ok()) {
        Rollback();
        return result;
    }
    ResultRecord committed = Commit();
    if (!committed.ok())
        return ExecResult::Failure(committed.Code, committed.Text);
    return result;
}

ExecResult PostgresDatabase::InsertRows(const QString& table, const QStringList& columns,
                                        const QVector<ValueArray>& rows) {
    if (rows.isEmpty())
        return ExecResult();
    QStringList marks;
    for (int i = 0; i < columns.size(); ++i)
        marks.append(QStringLiteral("?"));
    return Pipeline(
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(table, columns.join(QStringLiteral(", ")), marks.join(QStringLiteral(", "))),
        rows);
}

ExecResult PostgresDatabase::Pipeline(const QString& sql, const QVector<ValueArray>& rows) {
    // Every row's parameters and statement are made ready before the pipeline starts,
    // since a statement cannot be prepared synchronously inside it.
    QVector<Params> all(rows.size());
    QVector<QByteArray> names(rows.size());
    QString error;
    for (int i = 0; i < rows.size(); ++i) {
        if (!Convert(rows[i], all[i], &error) || !Prepare(sql, all[i], &names[i], &error)) {
            NoteStatementFailure();
            return ExecResult::Failure(codes::Failed, messages::StatementFailed(error));
        }
    }
    if (PQenterPipelineMode(conn_) != 1) {
        NoteStatementFailure();
        return ExecResult::Failure(codes::Failed, messages::StatementFailed(ConnectionError()));
    }
    ExecResult result;
    for (int start = 0; start < rows.size() && error.isEmpty(); start += kPipelineChunk) {
        const int end = std::min<int>(rows.size(), start + kPipelineChunk);
        int sent = 0;
        for (int i = start; i < end; ++i, ++sent) {
            const Params& p = all[i];
            if (PQsendQueryPrepared(conn_, names[i].constData(), int(p.Values.size()),
                                    p.Values.constData(), nullptr, nullptr, 0) != 1) {
                error = ConnectionError();
                break;
            }
        }
        if (PQpipelineSync(conn_) != 1 && error.isEmpty())
            error = ConnectionError();
        for (int i = 0; i < sent; ++i) {
            while (PGresult* res = PQgetResult(conn_)) {
                const ExecStatusType status = PQresultStatus(res);
                if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
                    result.RowsAffected += QByteArray(PQcmdTuples(res)).toLongLong();
                else if (status != PGRES_PIPELINE_ABORTED && error.isEmpty())
                    error = QString::fromUtf8(PQresultErrorMessage(res)).trimmed();
                PQclear(res);
            }
        }
        // The end of the round: the sync's own result.
        while (PGresult* res = PQgetResult(conn_)) {
            const bool sync = PQresultStatus(res) == PGRES_PIPELINE_SYNC;
            PQclear(res);
            if (sync)
                break;
        }
    }
    PQexitPipelineMode(conn_);
    if (!error.isEmpty()) {
        NoteStatementFailure();
        return ExecResult::Failure(codes::Failed, messages::StatementFailed(error));
    }
    return result;
}

// ---- Identifiers --------------------------------------------------------------------

IdsResult PostgresDatabase::NextIds(const QString& sequence, int count) {
    IdsResult result;
    if (count <= 0)
        return result;
    QueryResult q = Query(QStringLiteral("SELECT nextval(?) FROM generate_series(1, ?)"),
                          {Value(sequence), Value(qint32(count))});
    if (!q.ok()) {
        result.Code = codes::Failed;
        result.Text = messages::UnknownSequence(sequence) + QLatin1Char('\n') + q.Text;
        return result;
    }
    result.Ids.reserve(q.RowCount());
    for (const ValueArray& row : std::as_const(q.Rows))
        result.Ids << static_cast<qint64>(row.value(0).toDouble());
    std::sort(result.Ids.begin(), result.Ids.end());
    return result;
}

IdsResult PostgresDatabase::ReserveRowIds(const QString& table, int count) {
    IdsResult result;
    if (count <= 0)
        return result;
    // Tables are created with unquoted names, which PostgreSQL keeps in lower case.
    QueryResult q = Query(QStringLiteral("SELECT nextval(pg_get_serial_sequence(?, 'id')) FROM "
                                         "generate_series(1, ?)"),
                          {Value(table.toLower()), Value(qint32(count))});
    if (!q.ok()) {
        result.Code = q.Code;
        result.Text = q.Text;
        return result;
    }
    result.Ids.reserve(q.RowCount());
    for (const ValueArray& row : std::as_const(q.Rows))
        result.Ids << static_cast<qint64>(row.value(0).toDouble());
    std::sort(result.Ids.begin(), result.Ids.end());
    return result;
}

IdResult PostgresDatabase::NextId(const QString& sequence) {
    IdsResult r = NextIds(sequence, 1);
    return {r.Code, r.Text, r.ok() && !r.Ids.isEmpty() ? r.Ids.constFirst() : 0};
}

} // namespace orvo::host
