#include "ui/shell/main_window.h"

#include "frame/dll_header.h"
#include "frame/orvo_constants_service.h"
#include "frame/orvo_object_uio.h"
#include "host/session/host_session.h"
#include "ui/shell/desk_top.h"
#include "ui/shell/host_layout.h"
#include "ui/shell/host_tree.h"

#include <QApplication>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPixmap>
#include <QSplitter>
#include <QStatusBar>

namespace orvo::ui {

MainWindow::MainWindow(host::HostSession& session, QWidget* parent)
    : QMainWindow(parent), session_(session) {
    setObjectName(QStringLiteral("MainWindow"));
    const OrvoConstantsServicePtr constants = session.Services()->Constants();
    setWindowTitle(constants ? constants->Title() : QStringLiteral("Orvo Apskaita"));

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("Splitter"));
    desk_ = new DeskTop(splitter);
    desk_->MakeCurrent();
    services_ = DesktopServices::Install(session, this, desk_);
    tree_ = new HostTree(session.Services()->ObjectsService(), splitter);
    splitter->addWidget(tree_);
    splitter->addWidget(desk_);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({320, 880});
    setCentralWidget(splitter);

    tree_->OnShowForm = [this](const OrvoFormPtr& form) { desk_->Present(form); };
    if (services_.DeskTopService)
        services_.DeskTopService->OnRefresh = [this](const QString& oidr, const QString& parent) {
            tree_->RefreshObject(oidr, parent);
        };
    if (services_.Period) {
        services_.Period->OnChanged = [this](const ViewPeriod& period) {
            tree_->SetPeriod(period);
        };
        tree_->SetPeriod(services_.Period->Current());
    }
    registration_ = DLLHeader().DllInicialize(layout_);
    HostLayout::Fill(layout_);
    tree_->Build(layout_);

    auto* where = new QLabel(QStringLiteral("Knyga: %1   Naudotojas: %2")
                                 .arg(session.Db().Location(), session.User().Name),
                             this);
    where->setObjectName(QStringLiteral("lblSession"));
    statusBar()->addPermanentWidget(where);
    buildMenus();
    resize(1200, 800);
    tree_->setFocus();
    if (!registration_.ok())
        services_.Messages->Error(registration_.Text);
}

MainWindow::~MainWindow() = default;

void MainWindow::buildMenus() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("&Failas"));
    QAction* quit = file->addAction(QStringLiteral("&Baigti darbą"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    QMenu* windows = menuBar()->addMenu(QStringLiteral("&Langas"));
    QAction* toTree =
        windows->addAction(QStringLiteral("&Medis"), this, [this]() { tree_->setFocus(); });
    toTree->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_1));
    QAction* toDesk = windows->addAction(QStringLiteral("&Darbo stalas"), this, [this]() {
        if (QMdiSubWindow* active = desk_->activeSubWindow())
            active->setFocus();
        else
            desk_->setFocus();
    });
    toDesk->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_2));
    windows->addSeparator();
    windows->addAction(QStringLiteral("Išdėstyti &kaskadu"), desk_, &QMdiArea::cascadeSubWindows);
    windows->addAction(QStringLiteral("Išdėstyti &plytelėmis"), desk_, &QMdiArea::tileSubWindows);
    windows->addAction(QStringLiteral("&Uždaryti visus langus"), desk_,
                       &QMdiArea::closeAllSubWindows);
}

OrvoFormPtr MainWindow::OpenForm(const QString& name, const OrvoObjectUIOPtr& object) {
    const OrvoFormPtr form = services_.Forms->OpenForm(name);
    if (!form)
        return nullptr;
    if (object)
        form->SetOrvoObjectUIO(object);
    desk_->Present(form);
    return form;
}

bool MainWindow::SaveScreenshot(const QString& path) {
    if (!isVisible())
        show();
    QApplication::processEvents();
    const QPixmap picture = grab();
    return !picture.isNull() && picture.save(path, "PNG");
}

} // namespace orvo::ui
