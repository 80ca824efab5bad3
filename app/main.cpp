// orvo-apskaita: the desktop application. It opens a book (an SQLite file or a
// PostgreSQL connection string; with none, the demo book in the user's data folder,
// created with demo data on first start) for a user and shows the main window: the
// host's tree on the left, the desktop of open forms on the right.
//
// With --screenshot FILE it renders the main window offscreen into a PNG and ends,
// which is how the look of the program is checked without a screen; --form NAME puts a
// registered form, on a demo object, on the desktop first.
#include "accounts/account_registration.h"
#include "accounts/forms/account_forms_registration.h"
#include "core/process_memory.h"
#include "core/today.h"
#include "frame/object_registry.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"
#include "host/catalogues/catalogue_editor_navigator.h"
#include "host/demo/demo_book.h"
#include "host/script/plain_navigators.h"
#include "host/session/host_session.h"
#include "operations/forms/operation_forms.h"
#include "operations/operation_registration.h"
#include "settlement/forms/settlement_forms.h"
#include "ui/catalogues/catalogue_forms.h"
#include "ui/services/dialog_driver.h"
#include "ui/shell/desktop_forms.h"
#include "ui/shell/host_tree.h"
#include "ui/shell/main_window.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTextStream>
#include <cstring>

using namespace orvo;
using namespace orvo::host;

namespace {

QString defaultBook() {
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(dir);
    return QDir(dir).filePath(QStringLiteral("demo.orvo"));
}

// The demo book is made on first start: a new book filled with demo data.
int createDemoBook(const QString& location, QTextStream& err) {
    OpenResult created = Database::Open(location, OpenMode::CreateIfMissing);
    if (!created.ok()) {
        err << created.Text << Qt::endl;
        return 1;
    }
    const ResultRecord demo = CreateDemoBook(*created.Db, Today());
    if (!demo.ok()) {
        err << demo.Text << Qt::endl;
        return 1;
    }
    return 0;
}

// The classes of every subsystem, registered once before the book is opened.
void registerClasses() {
    RegisterOperationClasses();
    RegisterAccountClasses();
    HostSession::RegisterCatalogueClasses();
    RegisterPlainNavigators();
    // The catalogues' own navigators open their editors; they replace the plain ones.
    RegisterCatalogueNavigators();
}

// The object a form is shown on in a picture: the first stored record of the form's
// kind, or a blank one when the book has none. Groups of operations stand inside general
// groups, so the first group within the first general group is shown.
OrvoObjectUIOPtr demoObject(HostSession& session, const QString& formName) {
    static const QHash<QString, QString> kinds = {
        {QStringLiteral("frmAccountPlan"), QStringLiteral("O0200400")},
        {QStringLiteral("frmBRTemplate"), QStringLiteral("O0201600")},
        {QStringLiteral("frmBROperGroup"), QStringLiteral("O0201400")},
        {QStringLiteral("frmFirm"), QStringLiteral("O0000100")},
        {QStringLiteral("frmCurrency"), QStringLiteral("O0002200")},
    };
    const OrvoObjectsServicePtr objects = session.Services()->ObjectsService();
    const QString kind = kinds.value(formName, QStringLiteral("O0201500"));
    const OrvoObjectUIPtr navigator = objects->GetObjectUI(kind);
    const auto firstOf = [&](const QString& list) {
        const RecordsetPtr rows =
            navigator->GetOrvoObjectList(list, QStringLiteral("1"), QStringLiteral("1"));
        if (!rows || rows->RecordCount() == 0)
            return QString();
        rows->MoveFirst();
        return rows->Field(QStringLiteral("OIDR")).toString();
    };
    if (navigator) {
        QString oidr = firstOf(kind);
        if (kind == QLatin1String("O0201400") && oidr.size() > 8) {
            const QString inner = firstOf(oidr);
            if (inner.size() > 8)
                oidr = inner;
        }
        if (oidr.size() > 8)
            if (const OrvoObjectUIOPtr stored = objects->GetObjectUIO(oidr))
                return stored;
    }
    return objects->GetObjectUIO(kind);
}

bool wantsScreenshot(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--screenshot") == 0 ||
            std::strncmp(argv[i], "--screenshot=", 13) == 0)
            return true;
    return false;
}

} // namespace

int main(int argc, char** argv) {
    KeepFreedMemoryForReuse();
    const bool screenshot = wantsScreenshot(argc, argv);
    // A picture needs no screen: it is drawn offscreen unless a platform was chosen.
    if (screenshot && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orvo-apskaita"));
    QTextStream out(stdout);
    QTextStream err(stderr);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Orvo Apskaita"));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("knyga"),
                                 QStringLiteral("Knygos failas arba postgresql://… ryšio eilutė"));
    parser.addOption({QStringLiteral("user"), QStringLiteral("Naudotojo prisijungimo vardas"),
                      QStringLiteral("login")});
    parser.addOption({QStringLiteral("screenshot"),
                      QStringLiteral("Nupiešti pagrindinį langą į PNG failą ir baigti"),
                      QStringLiteral("failas")});
    parser.addOption({QStringLiteral("form"),
                      QStringLiteral("Su --screenshot: parodyti šį langą ant darbo stalo"),
                      QStringLiteral("langas")});
    parser.process(app);

    const QString formName = parser.value(QStringLiteral("form"));
    if (!formName.isEmpty() && !screenshot) {
        err << "--form naudojamas tik su --screenshot." << Qt::endl;
        return 2;
    }
    // Without a screen nobody answers a box: every dialog is closed as cancelled.
    if (screenshot)
        ui::DialogDriver::Set([](QDialog&) {});

    QString location = parser.positionalArguments().value(0);
    if (location.isEmpty()) {
        location = defaultBook();
        if (!QFileInfo::exists(location)) {
            out << "Kuriama demonstracinė knyga: " << location << Qt::endl;
            if (createDemoBook(location, err) != 0)
                return 1;
        }
    }

    registerClasses();
    SessionResult opened =
        HostSession::Open(location, OpenMode::Existing, parser.value(QStringLiteral("user")));
    if (!opened.ok()) {
        err << opened.Text << Qt::endl;
        if (!screenshot)
            QMessageBox::critical(nullptr, QStringLiteral("Orvo Apskaita"), opened.Text);
        return 1;
    }
    HostSession& session = *opened.Session;
    // The editors of the subsystems, opened by name from the tree and the forms.
    RegisterAccountForms(*session.Forms());
    RegisterOperationForms(*session.Forms());
    RegisterSettlementForms(*session.Forms());
    RegisterCatalogueForms(*session.Forms());

    int code = 0;
    {
        ui::MainWindow window(session);
        if (!screenshot) {
            window.show();
            code = app.exec();
        } else {
            if (!formName.isEmpty()) {
                if (!window.Services().Forms->Registry()->Has(formName)) {
                    err << ui::DeskTopForms::MissingFormText(formName) << Qt::endl;
                    return 1;
                }
                window.OpenForm(formName, demoObject(session, formName));
            } else if (QTreeWidgetItem* chart =
                           window.Tree()->NodeByTitle(QStringLiteral("Sąskaitų planas"))) {
                // The picture shows one list opened, so that it shows what the tree holds.
                chart->setExpanded(true);
            }
            const QString file = parser.value(QStringLiteral("screenshot"));
            if (!window.SaveScreenshot(file)) {
                err << "Nepavyko įrašyti paveikslo: " << file << Qt::endl;
                return 1;
            }
            out << file << Qt::endl;
        }
    }
    return code;
}
