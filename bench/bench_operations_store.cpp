// How fast the book takes and gives operations through the host's object store, the
// path of DO0201500_SaveOrvoObject and DO0201500_GetOrvoObject (checks, record numbers
// from the shared sequence, nested rows, lock, protocol and change log included), on an
// SQLite book with synchronous=FULL. The book holds the demo chart of accounts with a
// lock on the credited account (dated before the operations), and the book's own
// posting rules are on: every entry's accounts are looked up in the chart, their demanded
// addressees checked (the debited 2410 demands a firm, which every entry names) and
// their locks read.
//   BM_PostOperations        operations of 10 entries (each with a currency side and an
//                            addressee) saved one by one with Save, committed per batch
//                            of 100 operations
//   BM_PostMillionEntries    100,000 operations and 1,000,000 entries, once, saved with
//                            SaveMany (one transaction and commit per batch; the batch
//                            size is in the label)
//   BM_SaveOperation20       one new operation of 20 entries, per save: p50 and p99 of
//                            the time taken and of the processor time used (the rest is
//                            the commit's wait for the disk, one flush of the log)
//   BM_ReadOperation20       reading one operation of 20 entries back
//   BM_EngineFloorMillion    the same 1,000,000 entries (operation, entry, currency and
//                            addressee rows, protocol line) written straight through
//                            SQLite's prepared statements, with no checks and no object
//                            layer, into a book of the same structure (indexes and the
//                            account-turnover triggers included): what the storage engine
//                            alone costs on this machine, the floor any posting path
//                            stands on
// The operations handed to the store are built outside the measured time (build_s says
// how long building them took), since they are the caller's input, not the posting.
// Figures only: times, items_per_second and the percentile counters.
#include "core/recordset.h"
#include "host/demo/demo_chart.h"
#include "host/objects/object_store.h"
#include "host/objects/operation_kind.h"
#include "host/storage/database.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QDate>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

using namespace orvo;
using namespace orvo::host;

namespace {

struct Book {
    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("bench.orvo"));
    DatabasePtr db;
    ObjectKind kind = OperationKind(BookPostingRules());
    QString error;

    Book() {
        OpenResult r = Database::Open(path, OpenMode::CreateIfMissing);
        db = std::move(r.Db);
        if (!db) {
            error = r.Text;
            return;
        }
        db->Execute(QStringLiteral("PRAGMA synchronous = FULL"));
        const ResultRecord chart = CreateDemoChart(*db);
        if (!chart.ok()) {
            error = chart.Text;
            db.reset();
            return;
        }
        const ExecResult lock = db->Execute(
            QStringLiteral("INSERT INTO AccountLocks (AccountID, DateToHigh, DateToLow) "
                           "SELECT ID, ?, ? FROM Accounts WHERE Account = ?"),
            {Value(QDate(2025, 6, 30)), Value(QDate(2025, 12, 31)), Value(QStringLiteral("5000"))});
        if (!lock.ok() || lock.RowsAffected != 1) {
            error = QStringLiteral("no lock row: ") + lock.Text;
            db.reset();
        }
    }
};

const FieldDefs& OperationFields() {
    static const FieldDefs fields =
        ObjectStore::RecordFields(OperationKind(OperationPostingRules()).Root);
    return fields;
}

// A new operation of `entries` entries, as the data object hands it to the save.
RecordsetPtr NewOperation(int entries, int serial) {
    auto rs = Recordset::Create(OperationFields());
    rs->AddNew();
    rs->SetField(QStringLiteral("OType"), QStringLiteral("O0201500"));
    rs->SetField(QStringLiteral("DateD"), Value(QDate(2026, 1, 1).addDays(serial % 365)));
    rs->SetField(QStringLiteral("BROperGroupID"), Value(qint32(serial % 20)));
    rs->SetField(QStringLiteral("Number"), QString::number(serial));
    rs->SetField(QStringLiteral("Comment"), QStringLiteral("Pirkimas iš tiekėjo"));
    const RecordsetPtr br = rs->Field(QStringLiteral("BR")).toRecordset();
    for (int e = 0; e < entries; ++e) {
        br->AddNew();
        const QString guid = QStringLiteral("{%1-%2}").arg(serial).arg(e);
        br->SetField(QStringLiteral("GUID"), guid);
        br->SetField(QStringLiteral("DateD"), rs->Field(QStringLiteral("DateD")));
        br->SetField(QStringLiteral("SumA"), 92.0 + e);
        br->SetField(QStringLiteral("AccountD"), QStringLiteral("2410"));
        br->SetField(QStringLiteral("AccountC"), QStringLiteral("5000"));
        br->SetField(QStringLiteral("Info"), QStringLiteral("Įrašas"));
        br->SetField(QStringLiteral("RestoringSign"), Value(qint16(1)));
        const RecordsetPtr cur = br->Field(QStringLiteral("BRCurrency")).toRecordset();
        cur->AddNew();
        cur->SetField(QStringLiteral("BRGUID"), guid);
        cur->SetField(QStringLiteral("Sign"), Value(qint16(1)));
        cur->SetField(QStringLiteral("RateCurr"), 0.92);
        cur->SetField(QStringLiteral("SumCurr"), (92.0 + e) / 0.92);
        cur->SetField(QStringLiteral("FCurrencyCode"), QStringLiteral("USD"));
        cur->Update();
        const RecordsetPtr props = br->Field(QStringLiteral("BRProperties")).toRecordset();
        props->AddNew();
        props->SetField(QStringLiteral("BRGUID"), guid);
        props->SetField(QStringLiteral("Sign"), Value(qint16(1)));
        props->SetField(QStringLiteral("FOIDR"), QStringLiteral("O000010042"));
        props->SetField(QStringLiteral("ShowString"), QStringLiteral("UAB Ąžuolas"));
        props->Update();
        br->Update();
    }
    rs->Update();
    return rs;
}

using Clock = std::chrono::steady_clock;

// The processor time this thread has used, in milliseconds: apart from waiting for the
// disk and for other programs on the machine.
double ThreadCpuMs() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return t.tv_sec * 1000.0 + t.tv_nsec / 1e6;
}

// Posts `operations` operations of 10 entries, committing every `batch` operations:
// with Save inside the batch's transaction, or with one SaveMany per batch.
void Post(benchmark::State& state, int operations, int batch, bool saveMany) {
    double building = 0;
    double cpu = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Book book;
        if (!book.db) {
            state.SkipWithError(
                QString(QStringLiteral("no book: ") + book.error).toStdString().c_str());
            return;
        }
        ObjectStore store(*book.db);
        state.ResumeTiming();
        for (int first = 0; first < operations; first += batch) {
            state.PauseTiming();
            const auto built = Clock::now();
            QVector<ObjectStore::Item> items;
            for (int i = first; i < std::min(operations, first + batch); ++i)
                items.append({0, NewOperation(10, i)});
            building += std::chrono::duration<double>(Clock::now() - built).count();
            state.ResumeTiming();
            const double cpuStart = ThreadCpuMs();
            BOResult r;
            if (saveMany) {
                r = store.SaveMany(book.kind, items, {});
            } else {
                book.db->Begin();
                for (const ObjectStore::Item& item : std::as_const(items)) {
                    r = store.Save(book.kind, 0, item.Rs, {});
                    if (!r.ok())
                        break;
                }
                book.db->Commit();
            }
            cpu += ThreadCpuMs() - cpuStart;
            if (!r.ok()) {
                state.SkipWithError(r.Text.toStdString().c_str());
                return;
            }
        }
    }
    state.counters["operations"] = operations;
    state.counters["entries"] = operations * 10.0;
    state.counters["batch_size"] = batch;
    state.counters["build_s"] = building;
    state.counters["cpu_s"] = cpu / 1000;
    state.SetItemsProcessed(state.iterations() * operations * 10);
    state.SetLabel(std::string("entries/s; ") + (saveMany ? "SaveMany" : "Save") +
                   ", one commit per batch of " + std::to_string(batch) + " operations");
}

void BM_PostOperations(benchmark::State& state) {
    Post(state, static_cast<int>(state.range(0)), 100, false);
}
BENCHMARK(BM_PostOperations)->Arg(2000)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_PostOperationsSaveMany(benchmark::State& state) {
    Post(state, static_cast<int>(state.range(0)), 100, true);
}
BENCHMARK(BM_PostOperationsSaveMany)->Arg(2000)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_PostMillionEntries(benchmark::State& state) {
    Post(state, 100000, static_cast<int>(state.range(0)), true);
}
BENCHMARK(BM_PostMillionEntries)->Arg(1000)->Iterations(1)->Unit(benchmark::kSecond);

double Percentile(std::vector<double> v, double p) {
    if (v.empty())
        return 0;
    std::sort(v.begin(), v.end());
    const size_t i = std::min(v.size() - 1, static_cast<size_t>(p * (v.size() - 1) + 0.5));
    return v[i];
}

void BM_SaveOperation20(benchmark::State& state) {
    Book book;
    if (!book.db) {
        state.SkipWithError(
            QString(QStringLiteral("no book: ") + book.error).toStdString().c_str());
        return;
    }
    ObjectStore store(*book.db);
    std::vector<double> ms;
    std::vector<double> cpu;
    int serial = 0;
    for (auto _ : state) {
        const RecordsetPtr rs = NewOperation(20, serial++);
        const auto start = Clock::now();
        const double cpuStart = ThreadCpuMs();
        const BOResult r = store.Save(book.kind, 0, rs, {});
        cpu.push_back(ThreadCpuMs() - cpuStart);
        const std::chrono::duration<double> took = Clock::now() - start;
        state.SetIterationTime(took.count());
        ms.push_back(took.count() * 1000);
        if (!r.ok()) {
            state.SkipWithError(r.Text.toStdString().c_str());
            return;
        }
    }
    state.counters["p50_ms"] = Percentile(ms, 0.50);
    state.counters["p99_ms"] = Percentile(ms, 0.99);
    state.counters["cpu_p50_ms"] = Percentile(cpu, 0.50);
    state.counters["cpu_p99_ms"] = Percentile(cpu, 0.99);
}
BENCHMARK(BM_SaveOperation20)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

void BM_ReadOperation20(benchmark::State& state) {
    Book book;
    if (!book.db) {
        state.SkipWithError(
            QString(QStringLiteral("no book: ") + book.error).toStdString().c_str());
        return;
    }
    ObjectStore store(*book.db);
    const BOResult saved = store.Save(book.kind, 0, NewOperation(20, 1), {});
    if (!saved.ok()) {
        state.SkipWithError(saved.Text.toStdString().c_str());
        return;
    }
    const qint64 id =
        static_cast<qint64>(saved.Data.toRecordset()->Field(QStringLiteral("ID")).toDouble());
    std::vector<double> ms;
    for (auto _ : state) {
        const auto start = Clock::now();
        const BOResult r = store.Read(book.kind, id);
        ms.push_back(std::chrono::duration<double>(Clock::now() - start).count() * 1000);
        if (!r.ok()) {
            state.SkipWithError(r.Text.toStdString().c_str());
            return;
        }
        benchmark::DoNotOptimize(r.Data);
    }
    state.counters["p50_ms"] = Percentile(ms, 0.50);
    state.counters["p99_ms"] = Percentile(ms, 0.99);
}
BENCHMARK(BM_ReadOperation20)->Unit(benchmark::kMicrosecond);

// Binds text that outlives the statement's step: the literals and buffers below do.
void BindText(sqlite3_stmt* st, int column, const char* text) {
    sqlite3_bind_text(st, column, text, -1, SQLITE_STATIC);
}

void BM_EngineFloorMillion(benchmark::State& state) {
    constexpr int kOperations = 100000;
    constexpr int kEntries = 10;
    const int batch = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        Book book;
        if (!book.db) {
            state.SkipWithError(
                QString(QStringLiteral("no book: ") + book.error).toStdString().c_str());
            return;
        }
        book.db.reset();
        sqlite3* db = nullptr;
        sqlite3_open(book.path.toUtf8().constData(), &db);
        sqlite3_exec(db,
                     "PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON; "
                     "PRAGMA temp_store = MEMORY; PRAGMA cache_size = -32768",
                     nullptr, nullptr, nullptr);
        const char* sql[] = {
            "INSERT INTO BROpers (ID, OType, BROperGroupID, DateD, Comment, Number, "
            "CreatedByUserName, CreationDate) VALUES (?, 'O0201500', ?, ?, ?, ?, ?, ?)",
            "INSERT INTO BR (ID, BROperID, GUID, DateD, SumA, AccountD, AccountC, Info, "
            "RestoringSign) VALUES (?, ?, ?, ?, ?, '2410', '5000', ?, 1)",
            "INSERT INTO BRCurrency (BRID, BRGUID, Sign, RateCurr, SumCurr, FCurrencyCode) "
            "VALUES (?, ?, 1, 0.92, ?, 'USD')",
            "INSERT INTO BRProperties (BRID, BRGUID, Sign, FOIDR, ShowString) "
            "VALUES (?, ?, 1, 'O000010042', ?)",
            "INSERT INTO BROperLog (BROperID, UserName, ChangeDate, Action) "
            "VALUES (?, ?, ?, 'Sukurta')"};
        sqlite3_stmt* st[5] = {};
        for (int i = 0; i < 5; ++i)
            sqlite3_prepare_v3(db, sql[i], -1, SQLITE_PREPARE_PERSISTENT, &st[i], nullptr);
        const double cpuStart = ThreadCpuMs();
        state.ResumeTiming();
        sqlite3_int64 id = 1;
        char guid[32];
        char date[16];
        char number[16];
        const char* comment = "Pirkimas iš tiekėjo";
        const char* user = "Buhalterė";
        const char* stamp = "2026-01-01 10:00:00";
        bool failed = false;
        for (int o = 0; o < kOperations && !failed; ++o) {
            if (o % batch == 0)
                sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
            const sqlite3_int64 operation = id++;
            const QDate day = QDate(2026, 1, 1).addDays(o % 365);
            std::snprintf(date, sizeof date, "%04d-%02d-%02d", day.year(), day.month(), day.day());
            std::snprintf(number, sizeof number, "%d", o);
            sqlite3_bind_int64(st[0], 1, operation);
            sqlite3_bind_int(st[0], 2, o % 20);
            BindText(st[0], 3, date);
            BindText(st[0], 4, comment);
            BindText(st[0], 5, number);
            BindText(st[0], 6, user);
            BindText(st[0], 7, stamp);
            failed |= sqlite3_step(st[0]) != SQLITE_DONE;
            sqlite3_reset(st[0]);
            for (int e = 0; e < kEntries; ++e) {
                const sqlite3_int64 entry = id++;
                std::snprintf(guid, sizeof guid, "{%d-%d}", o, e);
                sqlite3_bind_int64(st[1], 1, entry);
                sqlite3_bind_int64(st[1], 2, operation);
                BindText(st[1], 3, guid);
                BindText(st[1], 4, date);
                sqlite3_bind_int64(st[1], 5, 9200 + 100 * e);
                BindText(st[1], 6, "Įrašas");
                sqlite3_bind_int64(st[2], 1, entry);
                BindText(st[2], 2, guid);
                sqlite3_bind_int64(st[2], 3, (9200 + 100 * e) * 100 / 92);
                sqlite3_bind_int64(st[3], 1, entry);
                BindText(st[3], 2, guid);
                BindText(st[3], 3, "UAB Ąžuolas");
                for (int k = 1; k <= 3; ++k) {
                    failed |= sqlite3_step(st[k]) != SQLITE_DONE;
                    sqlite3_reset(st[k]);
                }
            }
            sqlite3_bind_int64(st[4], 1, operation);
            BindText(st[4], 2, user);
            BindText(st[4], 3, stamp);
            failed |= sqlite3_step(st[4]) != SQLITE_DONE;
            sqlite3_reset(st[4]);
            if (o % batch == batch - 1 || o == kOperations - 1)
                sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
        }
        state.PauseTiming();
        state.counters["cpu_s"] = (ThreadCpuMs() - cpuStart) / 1000;
        if (failed)
            state.SkipWithError(sqlite3_errmsg(db));
        for (sqlite3_stmt* s : st)
            sqlite3_finalize(s);
        sqlite3_close(db);
        state.ResumeTiming();
    }
    state.counters["entries"] = kOperations * kEntries;
    state.counters["batch_size"] = batch;
    state.SetItemsProcessed(state.iterations() * kOperations * kEntries);
    state.SetLabel("entries/s; prepared statements straight to SQLite, one commit per batch of " +
                   std::to_string(batch) + " operations");
}
BENCHMARK(BM_EngineFloorMillion)->Arg(1000)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace
