// How fast the business object answers the settling windows on a large SQLite book, through
// the same calls the operation object makes (BusinessObject::Call with the parameter text):
//   BM_DebtsOfOneCustomer   GetDebts1 of one customer on 2410 at a date
//   BM_DebtsOfAllCustomers  GetDebts2 of every firm on 2410 at a date
//   BM_DebtsOfAllCustomersMidway  the same half way through the book, where many debts are
//                           covered only later and their rests are counted at the date
//   BM_DebtsOfOneSupplier   GetDebts1 of one supplier on 4430 (credit debts)
//   BM_AccountTotal         GetAccountTotal of 2410 at a date
//   BM_AccountsTotal        GetAccountsTotal of the whole book at a date
// The book is made once per run: 1,000,000 entries in 200,000 operations, of which 250,000
// invoices to 2,000 customers (one in ten in dollars), 170,000 payments referring to them
// (150,000 in full, 20,000 in half), so that 100,000 invoices stay open; 300,000 bills of
// 200 suppliers with 100,000 payments; 180,000 entries without addressee. Rows are
// inserted directly in bulk, so the database's own triggers keep the account turnover and
// the debts' rests as they would for any writer; the figures are times per call and the
// rows returned.
#include "core/recordset.h"
#include "frame/business_object.h"
#include "host/session/host_session.h"
#include "host/storage/database.h"
#include "host/storage/money.h"

#include <benchmark/benchmark.h>

#include <QDate>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <memory>
#include <vector>

using namespace orvo;
using namespace orvo::host;

namespace {

constexpr int kCustomers = 2000;
constexpr int kSuppliers = 200;
constexpr int kInvoices = 250000;
constexpr int kPaidInFull = 150000;
constexpr int kPaidInHalf = 20000;
constexpr int kBills = 300000;
constexpr int kBillPayments = 100000;
constexpr int kPlain = 1000000 - kInvoices - kPaidInFull - kPaidInHalf - kBills - kBillPayments;
constexpr int kEntriesPerOperation = 5;

const QDate kStart(2023, 1, 1);
const QDate kAsked(2024, 12, 31);

QString customer(int i) {
    return QStringLiteral("O0000100%1").arg(1000 + i % kCustomers);
}
QString supplier(int i) {
    return QStringLiteral("O0000100%1").arg(9000 + i % kSuppliers);
}

struct BenchBook {
    QTemporaryDir dir;
    std::unique_ptr<HostSession> session;
    QString error;

    // ORVO_BENCH_DEBTS_BOOK names a file to keep the book in between runs: it is filled
    // when it does not exist yet and read as it is otherwise, which saves minutes when the
    // figures are taken again and again.
    BenchBook() {
        const QString kept = qEnvironmentVariable("ORVO_BENCH_DEBTS_BOOK");
        const QString path = kept.isEmpty() ? dir.filePath(QStringLiteral("debts.orvo")) : kept;
        const bool filled = !kept.isEmpty() && QFileInfo::exists(kept);
        SessionResult s = HostSession::Open(path, OpenMode::CreateIfMissing);
        if (!s.ok()) {
            error = s.Text;
            return;
        }
        session = std::move(s.Session);
        if (!filled)
            error = Fill(session->Db());
    }

    static QString Fill(Database& db) {
        QVector<ValueArray> operations, entries, properties, currencies;
        qint64 next = 1000000; // record numbers above whatever the new book holds
        qint64 operation = 0;
        int inOperation = kEntriesPerOperation;
        auto entry = [&](const QDate& date, qint64 cents, const char* debit, const char* credit,
                         const QString& info) {
            if (inOperation == kEntriesPerOperation) {
                operation = ++next;
                operations.append({Value(double(operation)), Value(QStringLiteral("O0201500")),
                                   Value(date), Value(QString::number(operation)),
                                   Value(QStringLiteral("Operacija")), Value(1)});
                inOperation = 0;
            }
            ++inOperation;
            const qint64 id = ++next;
            entries.append({Value(double(id)), Value(double(operation)),
                            Value(QStringLiteral("{%1}").arg(id)), Value(date),
                            Money::CentsValue(cents), Value(QString::fromLatin1(debit)),
                            Value(QString::fromLatin1(credit)), Value(info)});
            return id;
        };
        auto property = [&](qint64 id, int sign, const QString& foidr) {
            properties.append({Value(double(id)), Value(QStringLiteral("{%1}").arg(id)),
                               Value(sign), Value(foidr), Value(foidr)});
        };
        auto dateOf = [](int i, int count) { return kStart.addDays(qint64(i) * 700 / count); };

        QVector<qint64> invoices;
        invoices.reserve(kInvoices);
        for (int i = 0; i < kInvoices; ++i) {
            const qint64 cents = 10000 + (i % 997) * 100;
            const qint64 id = entry(dateOf(i, kInvoices), cents, "2410", "5000",
                                    QStringLiteral("Sąskaita %1").arg(i));
            property(id, 1, customer(i));
            if (i % 10 == 0)
                currencies.append({Value(double(id)), Value(QStringLiteral("{%1}").arg(id)),
                                   Value(1), Value(0.92), Money::CentsValue(cents * 100 / 92),
                                   Value(QStringLiteral("USD"))});
            invoices << id;
        }
        for (int i = 0; i < kPaidInFull + kPaidInHalf; ++i) {
            const int paid = i;
            const qint64 cents = 10000 + (paid % 997) * 100;
            const qint64 id = entry(dateOf(paid, kInvoices).addDays(20),
                                    i < kPaidInFull ? cents : cents / 2, "2710", "2410", QString());
            property(id, -1, customer(paid));
            property(id, -1, QStringLiteral("O0201500%1").arg(invoices.at(paid)));
        }
        QVector<qint64> bills;
        bills.reserve(kBills);
        for (int i = 0; i < kBills; ++i) {
            const qint64 id =
                entry(dateOf(i, kBills), 5000 + (i % 311) * 100, "6000", "4430", QString());
            property(id, -1, supplier(i));
            bills << id;
        }
        for (int i = 0; i < kBillPayments; ++i) {
            const qint64 id = entry(dateOf(i, kBills).addDays(30), 5000 + (i % 311) * 100, "4430",
                                    "2710", QString());
            property(id, 1, supplier(i));
            property(id, 1, QStringLiteral("O0201500%1").arg(bills.at(i)));
        }
        for (int i = 0; i < kPlain; ++i)
            entry(dateOf(i, kPlain), 100 + i % 5000, i % 2 ? "6100" : "2710",
                  i % 2 ? "2710" : "301", QString());

        const struct {
            const char* sql;
            const QVector<ValueArray>* rows;
        } batches[] = {
            {"INSERT INTO BROpers (ID, OType, DateD, Number, Comment, BROperGroupID) VALUES "
             "(?, ?, ?, ?, ?, ?)",
             &operations},
            {"INSERT INTO BR (ID, BROperID, GUID, DateD, SumA, AccountD, AccountC, Info) VALUES "
             "(?, ?, ?, ?, ?, ?, ?, ?)",
             &entries},
            {"INSERT INTO BRProperties (BRID, BRGUID, Sign, FOIDR, ShowString) VALUES (?, ?, ?, "
             "?, ?)",
             &properties},
            {"INSERT INTO BRCurrency (BRID, BRGUID, Sign, RateCurr, SumCurr, FCurrencyCode) "
             "VALUES (?, ?, ?, ?, ?, ?)",
             &currencies},
        };
        // A transaction per chunk: SQLite's cost of closing each statement inside one
        // transaction grows with the transaction, so a single one of a million rows crawls.
        constexpr int kChunk = 50000;
        for (const auto& b : batches) {
            for (int from = 0; from < b.rows->size(); from += kChunk) {
                const ExecResult r =
                    db.ExecuteMany(QString::fromLatin1(b.sql), b.rows->mid(from, kChunk));
                if (!r.ok())
                    return r.Text;
            }
        }
        db.Execute(QStringLiteral("ANALYZE"));
        return {};
    }
};

BenchBook& Shared() {
    static BenchBook book;
    return book;
}

// Runs one call per iteration; `text` gives the parameter text of the iteration.
template <typename Text> void RunCalls(benchmark::State& state, const QString& method, Text text) {
    BenchBook& book = Shared();
    if (!book.session) {
        state.SkipWithError(book.error.toStdString().c_str());
        return;
    }
    const BusinessObjectPtr bo = book.session->BO();
    qint64 rows = 0;
    int i = 0;
    for (auto _ : state) {
        const BOResult r = bo->Call(method, text(i++));
        if (!r.ok()) {
            state.SkipWithError(r.Text.toStdString().c_str());
            return;
        }
        const RecordsetPtr rs = r.Data.toRecordset();
        rows += rs ? rs->RecordCount() : 0;
    }
    state.counters["rows"] = double(rows) / double(state.iterations());
}

// The long lists are run five times five calls and reported by their mean, median, spread
// and fastest run: on a shared machine one run can take a third longer than the next.
void Repeated(benchmark::internal::Benchmark* b) {
    b->Unit(benchmark::kMillisecond)
        ->Iterations(5)
        ->Repetitions(5)
        ->ReportAggregatesOnly(true)
        ->ComputeStatistics("min", [](const std::vector<double>& v) {
            return *std::min_element(v.begin(), v.end());
        });
}

QString debtsText(const QString& account, const QString& addressee, int sign,
                  const QDate& date = kAsked) {
    return QStringLiteral("'0','%1','%2','%3',%4")
        .arg(account, date.toString(QStringLiteral("yyyy.MM.dd")), addressee)
        .arg(sign);
}

void BM_DebtsOfOneCustomer(benchmark::State& state) {
    RunCalls(state, QStringLiteral("GetDebts1"),
             [](int i) { return debtsText(QStringLiteral("2410"), customer(i * 37), 1); });
}
BENCHMARK(BM_DebtsOfOneCustomer)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_DebtsOfOneSupplier(benchmark::State& state) {
    RunCalls(state, QStringLiteral("GetDebts1"),
             [](int i) { return debtsText(QStringLiteral("4430"), supplier(i * 7), -1); });
}
BENCHMARK(BM_DebtsOfOneSupplier)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_DebtsOfAllCustomers(benchmark::State& state) {
    RunCalls(state, QStringLiteral("GetDebts2"),
             [](int) { return debtsText(QStringLiteral("2410"), QStringLiteral("O0000100"), 1); });
}
BENCHMARK(BM_DebtsOfAllCustomers)->Apply(Repeated);

void BM_DebtsOfAllCustomersMidway(benchmark::State& state) {
    RunCalls(state, QStringLiteral("GetDebts2"), [](int) {
        return debtsText(QStringLiteral("2410"), QStringLiteral("O0000100"), 1,
                         QDate(2023, 12, 31));
    });
}
BENCHMARK(BM_DebtsOfAllCustomersMidway)->Apply(Repeated);

void BM_AccountTotal(benchmark::State& state) {
    RunCalls(state, QStringLiteral("GetAccountTotal"),
             [](int) { return QStringLiteral("'2410','','2024.12.31',1"); });
}
BENCHMARK(BM_AccountTotal)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_AccountsTotal(benchmark::State& state) {
    RunCalls(state, QStringLiteral("GetAccountsTotal"),
             [](int) { return QStringLiteral("'2024.12.31',''"); });
}
BENCHMARK(BM_AccountsTotal)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
