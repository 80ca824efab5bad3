// orvo: the command-line face of the system. It creates books (empty or with the
// demonstration data), runs JSON-lines scripts against a book through the same data
// objects the desktop uses, and lists the business object's methods. Every refusal is
// one Lithuanian line on standard error and a non-zero exit status.
#include "accounts/account_registration.h"
#include "core/process_memory.h"
#include "core/today.h"
#include "host/catalogues/catalogue_editor_navigator.h"
#include "host/demo/demo_book.h"
#include "host/script/plain_navigators.h"
#include "host/script/script_session.h"
#include "host/session/host_session.h"
#include "host/storage/database.h"
#include "operations/operation_registration.h"

#ifdef ORVO_ACCOUNTS_FORMS
#include "accounts/forms/account_forms_registration.h"
#endif
#ifdef ORVO_OPERATIONS_FORMS
#include "operations/forms/operation_forms.h"
#endif
#ifdef ORVO_SETTLEMENT_FORMS
#include "settlement/forms/settlement_forms.h"
#endif
#ifdef ORVO_WITH_UI
#include "ui/automation/script_runner.h"
#include "ui/automation/ui_script_ops.h"
#include "ui/catalogues/catalogue_forms.h"

#include <QApplication>
#endif

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStringList>

#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

using namespace orvo;
using namespace orvo::host;

namespace {

// Exit statuses: 0 done; 1 the work was refused or a script step failed; 2 the command
// line was wrong.
constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kUsage = 2;

void writeOut(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void writeErr(const QString& text) {
    const QByteArray bytes = (QStringLiteral("orvo: ") + text + QLatin1Char('\n')).toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stderr);
    std::fflush(stderr);
}

QString usage() {
    return QStringLiteral(
        "Naudojimas:\n"
        "  orvo init KNYGA [--demo]          sukuria naują knygą; su --demo – užpildo ją\n"
        "                                    demonstraciniais duomenimis\n"
        "  orvo script KNYGA [--user VARDAS] vykdo JSON eilučių scenarijų iš standartinės\n"
        "                                    įvesties: viena eilutė – vienas veiksmas,\n"
        "                                    į kiekvieną – viena JSON eilutė atsakymo\n"
        "  orvo methods KNYGA                išvardija verslo objekto metodus\n"
        "  orvo --help                       ši pagalba\n"
        "\n"
        "KNYGA – SQLite failo kelias arba PostgreSQL ryšio eilutė (postgresql://...).\n"
        "Dienos datą galima nustatyti aplinkos kintamuoju ORVO_TODAY=YYYY-MM-DD.\n"
        "Išėjimo kodas: 0 – atlikta; 1 – atsisakyta arba nepavyko bent vienas scenarijaus\n"
        "veiksmas; 2 – neteisinga komandinė eilutė. Protokolas aprašytas docs/script.md.\n");
}

int usageError(const QString& text) {
    writeErr(text);
    writeErr(QStringLiteral("Pagalba: orvo --help"));
    return kUsage;
}

// The classes of every subsystem, registered once before any book is opened.
void registerClasses() {
    RegisterOperationClasses();
    RegisterAccountClasses();
    HostSession::RegisterCatalogueClasses();
    RegisterPlainNavigators();
    // The catalogues' own navigators open their editors; they replace the plain ones.
    RegisterCatalogueNavigators();
}

// Removes an SQLite book that this run created, with the files SQLite keeps beside it.
void removeCreatedFile(const QString& path) {
    for (const QString& suffix :
         {QString(), QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm")})
        QFile::remove(path + suffix);
}

// Whether the place for a new book is free: no SQLite file with content, no tables in
// the PostgreSQL database. `created` tells whether a new SQLite file will be made.
bool placeIsFree(const QString& book, bool* created) {
    *created = false;
    if (Database::IsPostgresLocation(book)) {
        OpenResult c = Database::Open(book, OpenMode::ConnectOnly);
        if (!c.ok()) {
            writeErr(c.Text);
            return false;
        }
        const QueryResult q =
            c.Db->Query(QStringLiteral("SELECT COUNT(*) FROM information_schema.tables WHERE "
                                       "table_schema = current_schema()"));
        if (!q.ok()) {
            writeErr(q.Text);
            return false;
        }
        if (q.Scalar().toInt32() > 0) {
            writeErr(QStringLiteral("Duomenų bazėje jau yra lentelių, todėl nauja knyga joje "
                                    "nekuriama: %1")
                         .arg(Database::DisplayLocation(book)));
            return false;
        }
        return true;
    }
    const QFileInfo info(book);
    if (info.isDir()) {
        writeErr(QStringLiteral("Tai aplankas, o ne knygos failas: %1").arg(book));
        return false;
    }
    if (info.exists() && info.size() > 0) {
        writeErr(QStringLiteral("Knyga jau yra, todėl nauja nekuriama: %1").arg(book));
        return false;
    }
    *created = !info.exists();
    return true;
}

QString demoSummary(Database& db) {
    const struct {
        const char* table;
        const char* label;
    } counts[] = {{"Firms", "įmonės"},
                  {"Persons", "fiziniai asmenys"},
                  {"Employees", "darbuotojai"},
                  {"Banks", "bankai"},
                  {"BankAccounts", "banko sąskaitos"},
                  {"Currencies", "valiutos"},
                  {"CurrencyRates", "valiutų kursai"},
                  {"Users", "naudotojai"}};
    QStringList parts;
    for (const auto& c : counts) {
        // The table names are the program's own; a name cannot be a parameter.
        const QueryResult q =
            db.Query(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(c.table)));
        if (q.ok())
            parts.append(QString::fromUtf8(c.label) + QStringLiteral(" – ") +
                         QString::number(static_cast<qint64>(q.Scalar().toDouble())));
    }
    return parts.join(QStringLiteral(", "));
}

int runInit(const QString& book, bool demo) {
    bool created = false;
    if (!placeIsFree(book, &created))
        return kFailed;
    auto giveUp = [&](const QString& text) {
        writeErr(text);
        if (created)
            removeCreatedFile(book);
        return kFailed;
    };
    if (demo) {
        OpenResult opened = Database::Open(book, OpenMode::CreateIfMissing);
        if (!opened.ok())
            return giveUp(opened.Text);
        const ResultRecord r = CreateDemoBook(*opened.Db, Today());
        opened.Db.reset();
        if (!r.ok())
            return giveUp(r.Text);
    }
    SessionResult s =
        HostSession::Open(book, demo ? OpenMode::Existing : OpenMode::CreateIfMissing);
    if (!s.ok())
        return giveUp(s.Text);
    Database& db = s.Session->Db();
    QString text = QStringLiteral("Sukurta nauja knyga: %1 (%2, duomenų versija %3).\n")
                       .arg(db.Location(), db.BackendName())
                       .arg(db.SchemaVersion());
    if (demo)
        text += QStringLiteral("Įrašyti demonstraciniai duomenys (%1 dienai): %2.\n")
                    .arg(Today().toString(QStringLiteral("yyyy-MM-dd")), demoSummary(db));
    const SessionUser user = s.Session->User();
    text += QStringLiteral("Naudotojas: %1 (%2).\n").arg(user.Code, user.Name);
    writeOut(text);
    return kDone;
}

int runScript(const QString& book, const QString& user) {
    SessionResult s = HostSession::Open(book, OpenMode::Existing, user);
    if (!s.ok()) {
        writeErr(s.Text);
        return kFailed;
    }
    ScriptSession script(*s.Session);
#ifdef ORVO_WITH_UI
    // With the desktop library linked, scripts also open forms and work their controls;
    // a step that opens a modal window is followed by the steps that work it.
#ifdef ORVO_ACCOUNTS_FORMS
    RegisterAccountForms(*s.Session->Forms());
#endif
#ifdef ORVO_OPERATIONS_FORMS
    RegisterOperationForms(*s.Session->Forms());
#endif
#ifdef ORVO_SETTLEMENT_FORMS
    RegisterSettlementForms(*s.Session->Forms());
#endif
    RegisterCatalogueForms(*s.Session->Forms());
    ui::UiScriptOps::Register(script, *s.Session);
    ui::ScriptRunner runner(
        script,
        []() -> std::optional<QByteArray> {
            std::string text;
            if (!std::getline(std::cin, text))
                return std::nullopt;
            return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
        },
        [](int lineNumber, const QJsonObject& reply) {
            writeOut(QString::fromUtf8(QJsonDocument(reply).toJson(QJsonDocument::Compact)) +
                     QLatin1Char('\n'));
            if (!reply.value("ok").toBool()) {
                QString text = reply.value("error").toString();
                text.replace(QLatin1Char('\n'), QLatin1Char(' '));
                writeErr(QStringLiteral("eilutė %1: %2").arg(lineNumber).arg(text));
            }
        });
    return runner.Run() > 0 ? kFailed : kDone;
#else
    int failed = 0;
    int lineNumber = 0;
    std::string line;
    while (std::getline(std::cin, line)) {
        ++lineNumber;
        const QByteArray bytes(line.data(), static_cast<qsizetype>(line.size()));
        // Blank lines separate parts of a script and get no reply.
        if (bytes.trimmed().isEmpty())
            continue;
        const QJsonObject reply = script.RunLine(bytes);
        writeOut(QString::fromUtf8(QJsonDocument(reply).toJson(QJsonDocument::Compact)) +
                 QLatin1Char('\n'));
        if (!reply.value("ok").toBool()) {
            ++failed;
            // One line per failed step, however many lines its text has.
            QString text = reply.value("error").toString();
            text.replace(QLatin1Char('\n'), QLatin1Char(' '));
            writeErr(QStringLiteral("eilutė %1: %2").arg(lineNumber).arg(text));
        }
    }
    return failed > 0 ? kFailed : kDone;
#endif
}

int runMethods(const QString& book) {
    SessionResult s = HostSession::Open(book, OpenMode::Existing);
    if (!s.ok()) {
        writeErr(s.Text);
        return kFailed;
    }
    writeOut(s.Session->Methods().Listing());
    return kDone;
}

// The application object: scripts get a widget application, so that they can open forms
// (offscreen unless QT_QPA_PLATFORM names another platform: a script needs no display);
// the other commands need no more than the core.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
#ifdef ORVO_WITH_UI
    if (argc > 1 && std::strcmp(argv[1], "script") == 0) {
        // Standard error carries one line per failed step; the platform's own remarks
        // (no runtime folder, no window manager offscreen) are not the script's business.
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type == QtCriticalMsg || type == QtFatalMsg)
                writeErr(text);
        });
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        return std::make_unique<QApplication>(argc, argv);
    }
#endif
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    KeepFreedMemoryForReuse();
    const std::unique_ptr<QCoreApplication> app = makeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orvo"));
    const QStringList args = QCoreApplication::arguments().mid(1);
    if (args.isEmpty())
        return usageError(QStringLiteral("Nenurodyta komanda."));
    const QString command = args.first();
    if (command == QLatin1String("--help") || command == QLatin1String("-h") ||
        command == QLatin1String("help")) {
        writeOut(usage());
        return kDone;
    }

    // The rest: one book and the command's own options.
    QString book;
    QString user;
    bool demo = false;
    for (int i = 1; i < args.size(); ++i) {
        const QString& a = args.at(i);
        if (a == QLatin1String("--demo") && command == QLatin1String("init")) {
            demo = true;
        } else if (a == QLatin1String("--user") && command == QLatin1String("script")) {
            if (i + 1 >= args.size())
                return usageError(QStringLiteral("Po --user nurodykite naudotojo vardą."));
            user = args.at(++i);
        } else if (a.startsWith(QLatin1String("--"))) {
            return usageError(
                QStringLiteral("Nežinomas komandos „%1“ parametras: %2").arg(command, a));
        } else if (book.isEmpty()) {
            book = a;
        } else {
            return usageError(QStringLiteral("Per daug argumentų: %1").arg(a));
        }
    }
    if (command != QLatin1String("init") && command != QLatin1String("script") &&
        command != QLatin1String("methods"))
        return usageError(QStringLiteral("Nežinoma komanda: %1").arg(command));
    if (book.isEmpty())
        return usageError(QStringLiteral("Nenurodyta knyga (SQLite failas arba PostgreSQL ryšio "
                                         "eilutė)."));

    registerClasses();
    if (command == QLatin1String("init"))
        return runInit(book, demo);
    if (command == QLatin1String("script"))
        return runScript(book, user);
    return runMethods(book);
}
