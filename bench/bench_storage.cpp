// How fast storage takes and gives rows: batches of entry-like rows written with
// ExecuteMany (record numbers drawn from the shared sequence), single statements
// through the prepared-statement cache, and a SUM over the hundredths. SQLite always;
// PostgreSQL too when ORVO_TEST_PG names a server (a scratch database is made and
// dropped). Figures only: rows per second (wall clock) as items_per_second.
#include "host/storage/database.h"
#include "host/storage/money.h"

#include <benchmark/benchmark.h>

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QUrl>

using namespace orvo;
using namespace orvo::host;

namespace {

TableDef EntryTable() {
    return {QStringLiteral("BenchEntries"),
            {{QStringLiteral("ID"), ColumnType::Integer, true, false, {}, {}, false},
             Column(QStringLiteral("OperID"), ColumnType::Integer, true),
             Column(QStringLiteral("DateD"), ColumnType::Date, true),
             Column(QStringLiteral("AccountD"), ColumnType::Text),
             Column(QStringLiteral("AccountC"), ColumnType::Text),
             Column(QStringLiteral("SumA"), ColumnType::Money, true),
             Column(QStringLiteral("Comment"), ColumnType::Text)},
            {QStringLiteral("ID")},
            {}};
}

// One book per benchmark run: a temporary SQLite file, or a scratch PostgreSQL database.
struct Book {
    QTemporaryDir dir;
    DatabasePtr admin;
    QString scratch;
    DatabasePtr db;

    explicit Book(bool postgres) {
        QString location = dir.filePath(QStringLiteral("bench.orvo"));
        if (postgres) {
            admin = Database::Open(qEnvironmentVariable("ORVO_TEST_PG"), OpenMode::ConnectOnly).Db;
            if (!admin)
                return;
            scratch = QStringLiteral("orvo_b_%1")
                          .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
            admin->Execute(QStringLiteral("CREATE DATABASE ") + scratch);
            QUrl url(qEnvironmentVariable("ORVO_TEST_PG"));
            url.setPath(QLatin1Char('/') + scratch);
            location = url.toString();
        }
        db = Database::Open(location, OpenMode::CreateIfMissing).Db;
        if (db)
            db->CreateTable(EntryTable());
    }
    ~Book() {
        db.reset();
        if (admin && !scratch.isEmpty())
            admin->Execute(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(scratch));
    }
};

bool Skip(benchmark::State& state, bool postgres) {
    if (postgres && qEnvironmentVariable("ORVO_TEST_PG").isEmpty()) {
        state.SkipWithError("ORVO_TEST_PG is not set");
        return true;
    }
    return false;
}

void BM_InsertEntryBatches(benchmark::State& state, bool postgres) {
    if (Skip(state, postgres))
        return;
    Book book(postgres);
    if (!book.db) {
        state.SkipWithError("the book could not be opened");
        return;
    }
    const int batch = int(state.range(0));
    const QString sql = QStringLiteral("INSERT INTO BenchEntries (ID, OperID, DateD, AccountD, "
                                       "AccountC, SumA, Comment) VALUES (?, ?, ?, ?, ?, ?, ?)");
    const QDate day(2024, 3, 15);
    for (auto _ : state) {
        IdsResult ids = book.db->NextIds(kRecordSequence, batch);
        QVector<ValueArray> rows;
        rows.reserve(batch);
        for (int i = 0; i < batch; ++i) {
            rows << ValueArray{Value(double(ids.Ids[i])),
                               Value(qint32(i / 4)),
                               Value(day),
                               Value(QStringLiteral("2410")),
                               Value(QStringLiteral("5000")),
                               Money::CentsValue(Money::ToCents(12.34 + i % 100)),
                               Value(QStringLiteral("Pardavimas"))};
        }
        ExecResult r = book.db->ExecuteMany(sql, rows);
        if (!r.ok()) {
            state.SkipWithError(r.Text.toStdString().c_str());
            return;
        }
    }
    state.SetItemsProcessed(state.iterations() * batch);
}

void BM_SingleStatementsInOneTransaction(benchmark::State& state, bool postgres) {
    if (Skip(state, postgres))
        return;
    Book book(postgres);
    if (!book.db) {
        state.SkipWithError("the book could not be opened");
        return;
    }
    const QString sql = QStringLiteral("INSERT INTO BenchEntries (ID, OperID, DateD, SumA) "
                                       "VALUES (?, ?, ?, ?)");
    const int perTransaction = 1000;
    for (auto _ : state) {
        book.db->Begin();
        for (int i = 0; i < perTransaction; ++i) {
            IdResult id = book.db->NextId();
            book.db->Execute(sql, {Value(double(id.Id)), Value(qint32(1)), Value(QDate(2024, 1, 1)),
                                   Value(qint32(100))});
        }
        book.db->Commit();
    }
    state.SetItemsProcessed(state.iterations() * perTransaction);
}

void BM_SumOfHundredths(benchmark::State& state, bool postgres) {
    if (Skip(state, postgres))
        return;
    Book book(postgres);
    if (!book.db) {
        state.SkipWithError("the book could not be opened");
        return;
    }
    const int rowsCount = int(state.range(0));
    QVector<ValueArray> rows;
    for (int i = 0; i < rowsCount; ++i)
        rows << ValueArray{
            Value(qint32(i + 1)), Value(qint32(i)), Value(QDate(2024, 1, 1)), Value(), Value(),
            Value(qint32(10)),    Value()};
    book.db->ExecuteMany(QStringLiteral("INSERT INTO BenchEntries VALUES (?, ?, ?, ?, ?, ?, ?)"),
                         rows);
    for (auto _ : state) {
        QueryResult r = book.db->Query(QStringLiteral("SELECT SUM(SumA) FROM BenchEntries"));
        benchmark::DoNotOptimize(r.Scalar());
    }
    state.SetItemsProcessed(state.iterations() * rowsCount);
}

} // namespace

BENCHMARK_CAPTURE(BM_InsertEntryBatches, SQLite, false)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_InsertEntryBatches, PostgreSQL, true)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_SingleStatementsInOneTransaction, SQLite, false)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_SingleStatementsInOneTransaction, PostgreSQL, true)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_SumOfHundredths, SQLite, false)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_SumOfHundredths, PostgreSQL, true)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
