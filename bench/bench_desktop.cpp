// How fast the desktop answers on a big book: the demo book with 100,000 more operations
// in the group "Bendrosios operacijos" and one operation of 200 entries, on the offscreen
// platform.
//   BM_GroupListQuery       the group's list as its navigator reads it (the business
//                           object's call only)
//   BM_TreeFirstScreen      opening the group in the tree: the list read and its first
//                           screen of rows (and the "Daugiau įrašų..." row) shown
//   BM_OpenOperation200     opening the operation of 200 entries in frmBROper on the
//                           desktop: the record read, the window made and its list filled
// Figures only: times per opening.
#include "accounts/account_registration.h"
#include "accounts/forms/account_forms_registration.h"
#include "accounts/template_registration.h"
#include "core/today.h"
#include "frame/catalogue.h"
#include "frame/orvo_objects_service.h"
#include "host/demo/demo_book.h"
#include "host/script/plain_navigators.h"
#include "host/session/host_session.h"
#include "host/storage/database.h"
#include "host/storage/money.h"
#include "operations/forms/operation_forms.h"
#include "operations/operation_registration.h"
#include "ui/services/dialog_driver.h"
#include "ui/shell/desk_top.h"
#include "ui/shell/host_tree.h"
#include "ui/shell/main_window.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialog>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <cstdio>
#include <memory>

using namespace orvo;
using namespace orvo::host;
using namespace orvo::ui;

namespace {

constexpr int kOperations = 100000;
constexpr int kBigOperationEntries = 200;
// The demo book's "Bendrosios operacijos" under "Finansinės operacijos".
const QString kTopGroup = QStringLiteral("O02014001");
const QString kGroup = QStringLiteral("O02014002");
const QString kGroupId = QStringLiteral("2");

struct Desktop {
    QTemporaryDir dir;
    std::unique_ptr<HostSession> session;
    std::unique_ptr<MainWindow> window;
    QString bigOperation;
    QString error;

    Desktop() {
        const QString path = dir.filePath(QStringLiteral("desktop.orvo"));
        {
            OpenResult created = Database::Open(path, OpenMode::CreateIfMissing);
            if (!created.ok()) {
                error = created.Text;
                return;
            }
            const ResultRecord demo = CreateDemoBook(*created.Db, Today());
            if (!demo.ok()) {
                error = demo.Text;
                return;
            }
            error = Fill(*created.Db);
            if (!error.isEmpty())
                return;
        }
        RegisterOperationClasses();
        RegisterAccountClasses();
        RegisterTemplateClasses();
        HostSession::RegisterCatalogueClasses();
        RegisterPlainNavigators();
        SessionResult s = HostSession::Open(path);
        if (!s.ok()) {
            error = s.Text;
            return;
        }
        session = std::move(s.Session);
        RegisterOperationForms(*session->Forms());
        RegisterAccountForms(*session->Forms());
        window = std::make_unique<MainWindow>(*session);
    }

    // The operations go in with plain statements: their storing is measured elsewhere.
    QString Fill(Database& db) {
        QVector<ValueArray> operations;
        QVector<ValueArray> entries;
        const qint64 first = 1000000;
        const QDate start(2026, 1, 1);
        for (int i = 0; i < kOperations; ++i)
            operations.append({Value(double(first + i)), Value(QStringLiteral("O0201500")),
                               Value(qint32(kGroupId.toInt())), Value(start.addDays(i % 300)),
                               Value(QStringLiteral("BO %1").arg(i + 1, 6, 10, QLatin1Char('0'))),
                               Value(QStringLiteral("Operacija %1").arg(i + 1))});
        const qint64 big = first + kOperations - 1;
        for (int e = 0; e < kBigOperationEntries; ++e)
            entries.append({Value(double(first + kOperations + e)), Value(double(big)),
                            Value(QStringLiteral("{big-%1}").arg(e)), Value(start),
                            Money::CentsValue(1000 + e), Value(QStringLiteral("2410")),
                            Value(QStringLiteral("5000")),
                            Value(QStringLiteral("Įrašas %1").arg(e + 1))});
        bigOperation = QStringLiteral("O0201500%1").arg(big);
        if (!db.Begin().ok())
            return QStringLiteral("no transaction");
        ExecResult r = db.ExecuteMany(
            QStringLiteral("INSERT INTO BROpers (ID, OType, BROperGroupID, DateD, Number, "
                           "Comment) VALUES (?, ?, ?, ?, ?, ?)"),
            operations);
        if (r.ok())
            r = db.ExecuteMany(QStringLiteral("INSERT INTO BR (ID, BROperID, GUID, DateD, SumA, "
                                              "AccountD, AccountC, Info) VALUES (?, ?, ?, ?, ?, "
                                              "?, ?, ?)"),
                               entries);
        if (!r.ok()) {
            db.Rollback();
            return r.Text;
        }
        return db.Commit().ok() ? QString() : QStringLiteral("no commit");
    }
};

Desktop& TheDesktop() {
    static Desktop* desktop = new Desktop;
    return *desktop;
}

QTreeWidgetItem* ChildRow(QTreeWidgetItem* parent, const QString& oidr) {
    for (int i = 0; parent && i < parent->childCount(); ++i)
        if (parent->child(i)->data(0, HostTree::OidRole).toString() == oidr)
            return parent->child(i);
    return nullptr;
}

// The group's row in the tree, with its parents opened.
QTreeWidgetItem* GroupRow(HostTree& tree) {
    QTreeWidgetItem* node = tree.NodeByTitle(QStringLiteral("Finansinių operacijų apskaita"));
    if (!node)
        return nullptr;
    tree.Open(node);
    QTreeWidgetItem* top = ChildRow(node, kTopGroup);
    if (!top)
        return nullptr;
    tree.Open(top);
    return ChildRow(top, kGroup);
}

bool Ready(benchmark::State& state) {
    Desktop& d = TheDesktop();
    if (!d.error.isEmpty() || !d.window) {
        state.SkipWithError(
            QString(QStringLiteral("no desktop: ") + d.error).toStdString().c_str());
        return false;
    }
    return true;
}

void BM_GroupListQuery(benchmark::State& state) {
    if (!Ready(state))
        return;
    Desktop& d = TheDesktop();
    const OrvoObjectUIPtr groups =
        d.session->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201400"));
    int rows = 0;
    for (auto _ : state) {
        const RecordsetPtr list = groups->GetOrvoObjectList(kGroup, QString(), QString());
        rows = list ? list->RecordCount() : -1;
    }
    state.counters["rows"] = rows;
}
BENCHMARK(BM_GroupListQuery)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_TreeFirstScreen(benchmark::State& state) {
    if (!Ready(state))
        return;
    HostTree& tree = *TheDesktop().window->Tree();
    QTreeWidgetItem* group = GroupRow(tree);
    if (!group) {
        state.SkipWithError("the group is not in the tree");
        return;
    }
    int shown = 0;
    for (auto _ : state) {
        tree.Reload(group);
        QApplication::processEvents();
        shown = group->childCount();
    }
    state.counters["rows_shown"] = shown;
    state.counters["page"] = tree.PageSize();
}
BENCHMARK(BM_TreeFirstScreen)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_OpenOperation200(benchmark::State& state) {
    if (!Ready(state))
        return;
    Desktop& d = TheDesktop();
    DeskTop& desk = *d.window->Desk();
    int entries = 0;
    for (auto _ : state) {
        const OrvoObjectUIOPtr op =
            d.session->Services()->ObjectsService()->GetObjectUIO(d.bigOperation);
        const OrvoFormPtr form = Catalogue::NewFormForKind(QStringLiteral("O0201500"));
        if (!op || !form) {
            state.SkipWithError("the operation or its window is missing");
            return;
        }
        form->SetOrvoObjectUIO(op);
        desk.Present(form);
        QApplication::processEvents();
        state.PauseTiming();
        const RecordsetPtr br = op->Field(QStringLiteral("BR")).toRecordset();
        entries = br ? br->RecordCount() : -1;
        desk.Close(form.get());
        QApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["entries"] = entries;
}
BENCHMARK(BM_OpenOperation200)->Unit(benchmark::kMillisecond)->Iterations(10);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // A box in the middle of a measurement is a failure to report, never a wait.
    DialogDriver::Set([](QDialog& dialog) {
        std::fprintf(stderr, "unexpected window: %s\n",
                     qPrintable(dialog.objectName() + QLatin1Char(' ') + dialog.windowTitle()));
        dialog.reject();
    });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
