// orvo-apskaita: the desktop application. It opens a book (an SQLite file or a
// PostgreSQL connection string; with none, the demo book in the user's data folder,
// created with demo data on first start) for a user, and shows what it opened. The
// windows of the desktop are built on this same session.
#include "core/number_text.h"
#include "core/recordset.h"
#include "core/today.h"
#include "frame/orvo_constants_service.h"
#include "frame/orvo_services.h"
#include "host/demo/demo_book.h"
#include "host/session/host_session.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTextStream>

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
        err << created.Text << '\n';
        return 1;
    }
    const ResultRecord demo = CreateDemoBook(*created.Db, Today());
    if (!demo.ok()) {
        err << demo.Text << '\n';
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
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
    parser.process(app);

    QString location = parser.positionalArguments().value(0);
    if (location.isEmpty()) {
        location = defaultBook();
        if (!QFileInfo::exists(location)) {
            out << "Kuriama demonstracinė knyga: " << location << Qt::endl;
            if (createDemoBook(location, err) != 0)
                return 1;
        }
    }

    SessionResult opened =
        HostSession::Open(location, OpenMode::Existing, parser.value(QStringLiteral("user")));
    if (!opened.ok()) {
        err << opened.Text << '\n';
        return 1;
    }
    HostSession& session = *opened.Session;
    const OrvoConstantsServicePtr constants = session.Services()->Constants();
    out << constants->Title() << '\n';
    out << "Knyga: " << Database::DisplayLocation(location) << " (" << session.Db().BackendName()
        << ")\n";
    out << "Naudotojas: " << session.User().Name << " (" << session.User().Code << ")\n";
    if (const RecordsetPtr firm = constants->MyFirm())
        out << "Įmonė: " << firm->Field(QStringLiteral("Name")).toString() << '\n';
    out << "Bazinė valiuta: " << constants->GetConstant(QStringLiteral("BaseCurrency")).toString()
        << '\n';
    const BOResult rates = session.BO()->Call(
        QStringLiteral("GetCurrencyList"),
        QStringLiteral("'") + Today().toString(QStringLiteral("yyyy.MM.dd")) + QStringLiteral("'"));
    if (const RecordsetPtr rs = rates.Data.toRecordset()) {
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            if (rs->Field(QStringLiteral("BaseCurrency")).toInt32() == 1)
                continue;
            out << "  " << rs->Field(QStringLiteral("Code")).toString() << ' '
                << FormatNumberLt(rs->Field(QStringLiteral("CurrencyRate")).toDouble(), 4)
                << " už 1 " << constants->GetConstant(QStringLiteral("BaseCurrency")).toString()
                << " ("
                << rs->Field(QStringLiteral("RateDate"))
                       .toDate()
                       .toString(QStringLiteral("yyyy-MM-dd"))
                << ")\n";
        }
    }
    return 0;
}
