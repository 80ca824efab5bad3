// The desktop program itself: --screenshot draws the main window offscreen into a PNG,
// and --form refuses a window nobody registered.
#include "desktop_fixture.h"

#include <QImage>
#include <QProcess>

namespace orvo::ui::testing {

namespace {

struct ProgramRun {
    int Code = -1;
    QString Out;
    QString Err;
};

ProgramRun runProgram(const QStringList& arguments) {
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(env);
    process.start(QString::fromUtf8(ORVO_APSKAITA_PATH), arguments);
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

TEST(DesktopProgram, ScreenshotWritesAPngOfTheMainWindow) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString book = dir.filePath(QStringLiteral("demo.orvo"));
    ASSERT_TRUE(MakeDemoBook(book).isEmpty());
    const QString png = dir.filePath(QStringLiteral("langas.png"));
    const ProgramRun run = runProgram({book, QStringLiteral("--screenshot"), png});
    ASSERT_EQ(run.Code, 0) << run.Err.toStdString();
    const QImage image(png);
    ASSERT_FALSE(image.isNull());
    EXPECT_GE(image.width(), 800);
    EXPECT_GE(image.height(), 500);
    EXPECT_GT(QFileInfo(png).size(), 10000);
    // Not one flat colour: the tree and its texts are drawn.
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 7)
        for (int x = 0; x < image.width() / 3; x += 5)
            colours.insert(image.pixel(x, y));
    EXPECT_GT(colours.size(), 20);
}

TEST(DesktopProgram, ScreenshotOfARegisteredFormShowsItOnItsKindsObject) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString book = dir.filePath(QStringLiteral("demo.orvo"));
    ASSERT_TRUE(MakeDemoBook(book).isEmpty());
    const QString png = dir.filePath(QStringLiteral("planas.png"));
    const ProgramRun run = runProgram({book, QStringLiteral("--screenshot"), png,
                                       QStringLiteral("--form"), QStringLiteral("frmAccountPlan")});
    EXPECT_EQ(run.Code, 0) << run.Err.toStdString();
    const QImage image(png);
    ASSERT_FALSE(image.isNull());
    EXPECT_GT(QFileInfo(png).size(), 10000);
}

TEST(DesktopProgram, ScreenshotOfAFormNobodyRegisteredIsRefused) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString book = dir.filePath(QStringLiteral("demo.orvo"));
    ASSERT_TRUE(MakeDemoBook(book).isEmpty());
    const QString png = dir.filePath(QStringLiteral("forma.png"));
    const ProgramRun run = runProgram({book, QStringLiteral("--screenshot"), png,
                                       QStringLiteral("--form"), QStringLiteral("frmNeraTokio")});
    EXPECT_EQ(run.Code, 1);
    EXPECT_TRUE(run.Err.contains(QStringLiteral("Langas „frmNeraTokio“ dar neįdiegtas.")))
        << run.Err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(png));
}

TEST(DesktopProgram, MissingBookIsRefusedWithoutAPicture) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString png = dir.filePath(QStringLiteral("nera.png"));
    const ProgramRun run = runProgram(
        {dir.filePath(QStringLiteral("nera.orvo")), QStringLiteral("--screenshot"), png});
    EXPECT_EQ(run.Code, 1);
    EXPECT_FALSE(run.Err.trimmed().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(png));
}

} // namespace orvo::ui::testing
