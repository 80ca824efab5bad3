// How fast the in-memory recordset is on a book-sized table: 100,000 entries with an
// account, a sum, a date and a count. Filter, sort and walk are what journals and the
// settlement windows do on every refresh.
#include "core/recordset.h"

#include <benchmark/benchmark.h>

#include <random>

using namespace orvo;

namespace {

constexpr int kRows = 100000;

FieldDefs EntryFields() {
    return {FieldDef::Make("AccountD", FieldType::VarWChar, 20),
            FieldDef::Make("SumA", FieldType::Double), FieldDef::Make("DateD", FieldType::Date),
            FieldDef::Make("Qty", FieldType::Integer)};
}

// The same table every time: accounts from a small chart, sums up to 1000, dates over
// two years.
RecordsetPtr BuildEntries(int rows) {
    static const char* const accounts[] = {"2410", "2411", "2420", "2710", "2720", "4430",
                                           "4480", "5000", "5310", "6110", "6300", "2440"};
    std::mt19937 rng(20240301);
    std::uniform_int_distribution<int> account(0, int(std::size(accounts)) - 1);
    std::uniform_int_distribution<int> cents(0, 100000);
    std::uniform_int_distribution<int> day(0, 729);
    std::uniform_int_distribution<int> qty(1, 50);
    const QDate start(2023, 1, 1);
    RecordsetPtr rs = Recordset::Create(EntryFields());
    for (int i = 0; i < rows; ++i) {
        rs->AddNew();
        rs->SetField(0,
                     QString(QString::fromLatin1(accounts[account(rng)]) + QString::number(i % 7)));
        rs->SetField(1, cents(rng) / 100.0);
        rs->SetField(2, start.addDays(day(rng)));
        rs->SetField(3, qty(rng));
    }
    rs->AcceptChanges();
    return rs;
}

RecordsetPtr& Entries() {
    static RecordsetPtr rs = BuildEntries(kRows);
    return rs;
}

void BM_Recordset_Build(benchmark::State& state) {
    for (auto _ : state) {
        RecordsetPtr rs = BuildEntries(int(state.range(0)));
        benchmark::DoNotOptimize(rs->RecordCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Recordset_Build)->Arg(kRows)->Unit(benchmark::kMillisecond);

void BM_Recordset_FilterLikeAndGreater(benchmark::State& state) {
    RecordsetPtr rs = Entries();
    rs->SetSort(QString());
    int count = 0;
    for (auto _ : state) {
        const ResultRecord r = rs->SetFilter(QStringLiteral("AccountD like '24*' And SumA > 100"));
        count = rs->RecordCount();
        benchmark::DoNotOptimize(r.Code);
    }
    state.counters["visible"] = count;
    state.SetItemsProcessed(state.iterations() * kRows);
    rs->SetFilter(QString());
}
BENCHMARK(BM_Recordset_FilterLikeAndGreater)->Unit(benchmark::kMillisecond);

void BM_Recordset_FilterDateRangeOrAccount(benchmark::State& state) {
    RecordsetPtr rs = Entries();
    rs->SetSort(QString());
    for (auto _ : state) {
        rs->SetFilter(QStringLiteral("(DateD >= '2024.01.01' And DateD <= '2024.03.31') OR "
                                     "(AccountD = '27100' And Qty > 25)"));
        benchmark::DoNotOptimize(rs->RecordCount());
    }
    state.counters["visible"] = rs->RecordCount();
    state.SetItemsProcessed(state.iterations() * kRows);
    rs->SetFilter(QString());
}
BENCHMARK(BM_Recordset_FilterDateRangeOrAccount)->Unit(benchmark::kMillisecond);

void BM_Recordset_SortTwoKeys(benchmark::State& state) {
    RecordsetPtr rs = Entries();
    rs->SetFilter(QString());
    for (auto _ : state) {
        state.PauseTiming();
        rs->SetSort(QString()); // back to insertion order, so every round sorts afresh
        state.ResumeTiming();
        rs->SetSort(QStringLiteral("AccountD,SumA DESC"));
        benchmark::DoNotOptimize(rs->RecordCount());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
    rs->SetSort(QString());
}
BENCHMARK(BM_Recordset_SortTwoKeys)->Unit(benchmark::kMillisecond);

void BM_Recordset_FilterThenSort(benchmark::State& state) {
    RecordsetPtr rs = Entries();
    for (auto _ : state) {
        rs->SetSort(QString());
        rs->SetFilter(QStringLiteral("AccountD like '24*' And SumA > 100"));
        rs->SetSort(QStringLiteral("DateD DESC,Qty"));
        benchmark::DoNotOptimize(rs->RecordCount());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
    rs->SetFilter(QString());
    rs->SetSort(QString());
}
BENCHMARK(BM_Recordset_FilterThenSort)->Unit(benchmark::kMillisecond);

void BM_Recordset_WalkReadingTwoFieldsByName(benchmark::State& state) {
    RecordsetPtr rs = Entries();
    rs->SetFilter(QString());
    for (auto _ : state) {
        double total = 0;
        qsizetype chars = 0;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            total += rs->Field(QStringLiteral("SumA")).toDouble();
            chars += rs->Field(QStringLiteral("AccountD")).toString().size();
        }
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(chars);
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_Recordset_WalkReadingTwoFieldsByName)->Unit(benchmark::kMillisecond);

void BM_Recordset_WalkReadingTwoFieldsByIndex(benchmark::State& state) {
    RecordsetPtr rs = Entries();
    rs->SetFilter(QString());
    const int sum = rs->FieldIndex(QStringLiteral("SumA"));
    const int account = rs->FieldIndex(QStringLiteral("AccountD"));
    for (auto _ : state) {
        double total = 0;
        qsizetype chars = 0;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            total += rs->Field(sum).toDouble();
            chars += rs->Field(account).toString().size();
        }
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(chars);
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_Recordset_WalkReadingTwoFieldsByIndex)->Unit(benchmark::kMillisecond);

void BM_Recordset_Clone(benchmark::State& state) {
    RecordsetPtr rs = Entries();
    for (auto _ : state) {
        RecordsetPtr copy = rs->Clone();
        benchmark::DoNotOptimize(copy->RecordCount());
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_Recordset_Clone)->Unit(benchmark::kMillisecond);

} // namespace
