// The printed list as a real PDF, read back with Poppler's command-line tools: the
// Lithuanian letters come out as written, the font is embedded, long lists run over
// pages with their numbers, and a file that cannot be written is reported.
#include "reports/list_report.h"
#include "reports/pdf_list_writer.h"
#include "reports/report_fonts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace orvo::reports {
namespace {

// Runs a Poppler tool on a file and gives its standard output.
QString poppler(const QString& tool, const QStringList& args) {
    QProcess p;
    p.start(tool, args);
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return QStringLiteral("<%1 failed: %2>")
            .arg(tool, QString::fromUtf8(p.readAllStandardError()));
    return QString::fromUtf8(p.readAllStandardOutput());
}

QString textOf(const QString& pdf) {
    return poppler(QStringLiteral("pdftotext"),
                   {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
}

ListReport chart() {
    ListReport r;
    r.Title = QStringLiteral("Saskaitų planas");
    r.BaseName = QStringLiteral("Saskaita");
    r.AddColumn(QStringLiteral("Sąskaita"), 1);
    r.AddColumn(QStringLiteral("Pavadinimas"), 4);
    r.AddColumn(QStringLiteral("Tipas"), 0.7);
    r.AddRow({QStringLiteral("2"), QStringLiteral("TRUMPALAIKIS TURTAS"), QString()}, true);
    r.AddRow({QStringLiteral("2410"), QStringLiteral("Pirkėjų įsiskolinimai"), QStringLiteral("D")},
             false, 1);
    r.AddRow({QStringLiteral("4492"),
              QStringLiteral("Mokėtinas PVM – Ąžuolų, Čiurlionio, Šiaurės ūkis"),
              QStringLiteral("K")},
             false, 1);
    return r;
}

class PdfListWriterTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        ASSERT_FALSE(ReportFonts::Family().isEmpty()) << ReportFonts::Problem().toStdString();
    }
    QString path(const char* name) const { return dir_.filePath(QString::fromLatin1(name)); }
    QTemporaryDir dir_;
};

TEST_F(PdfListWriterTest, LithuanianLettersComeBackOutOfThePdf) {
    const QString file = path("planas.pdf");
    ASSERT_TRUE(PdfListWriter::Write(chart(), file, QDate(2024, 3, 15)).ok());
    const QString text = textOf(file);
    EXPECT_TRUE(text.contains(QStringLiteral("Saskaitų planas"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Pirkėjų įsiskolinimai"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Ąžuolų, Čiurlionio, Šiaurės ūkis")))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Spausdinta 2024-03-15")));
    EXPECT_TRUE(text.contains(QStringLiteral("Puslapis 1 iš 1")));
}

TEST_F(PdfListWriterTest, RegularAndBoldFacesAreEmbedded) {
    const QString file = path("planas.pdf");
    ASSERT_TRUE(PdfListWriter::Write(chart(), file, QDate(2024, 3, 15)).ok());
    const QString fonts = poppler(QStringLiteral("pdffonts"), {file});
    const QStringList lines = fonts.split(QLatin1Char('\n'));
    int embedded = 0;
    bool bold = false;
    for (const QString& line : lines) {
        if (!line.contains(QStringLiteral("DejaVuSans")))
            continue;
        // The columns read: name, type, encoding, emb, sub, uni, object, generation.
        const QStringList cols = line.simplified().split(QLatin1Char(' '));
        ASSERT_GE(cols.size(), 6) << line.toStdString();
        if (cols[cols.size() - 5] == QLatin1String("yes"))
            ++embedded;
        if (line.contains(QStringLiteral("Bold")))
            bold = true;
    }
    EXPECT_GE(embedded, 2) << fonts.toStdString();
    EXPECT_TRUE(bold) << fonts.toStdString();
}

TEST_F(PdfListWriterTest, ALongListRunsOverNumberedPages) {
    ListReport r = chart();
    for (int i = 0; i < 400; ++i)
        r.AddRow({QString::number(6000 + i), QStringLiteral("Sąnaudos nr. %1").arg(i),
                  QStringLiteral("D")});
    const int pages = PdfListWriter::PageCount(r);
    EXPECT_GT(pages, 3);
    const QString file = path("ilgas.pdf");
    ASSERT_TRUE(PdfListWriter::Write(r, file, QDate(2024, 3, 15)).ok());
    const QString info = poppler(QStringLiteral("pdfinfo"), {file});
    EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Pages:\\s+%1\\b").arg(pages))))
        << info.toStdString();
    const QString text = textOf(file);
    EXPECT_TRUE(text.contains(QStringLiteral("Puslapis %1 iš %1").arg(pages)));
    // Every row is printed once, and the captions head every page.
    EXPECT_EQ(text.count(QStringLiteral("Sąnaudos nr. 399")), 1);
    EXPECT_EQ(text.count(QStringLiteral("Pavadinimas")), pages);
    EXPECT_EQ(text.count(QStringLiteral("Saskaitų planas")), 1);
}

TEST_F(PdfListWriterTest, ANameTooLongForItsColumnWrapsAndStaysWhole) {
    ListReport r = chart();
    const QString longName = QStringLiteral(
        "Ilgalaikio materialiojo turto nusidėvėjimo sąnaudos, priskiriamos administracinėms "
        "sąnaudoms, ir jų perskaičiavimas pagal naują nusidėvėjimo normatyvą");
    r.AddRow({QStringLiteral("6101"), longName, QStringLiteral("D")});
    const QString file = path("ilgas.pdf");
    ASSERT_TRUE(PdfListWriter::Write(r, file, QDate(2024, 3, 15)).ok());
    const QString flat = textOf(file).simplified();
    EXPECT_TRUE(flat.contains(QStringLiteral("normatyvą"))) << flat.toStdString();
    EXPECT_TRUE(flat.contains(QStringLiteral("Ilgalaikio materialiojo")));
}

TEST_F(PdfListWriterTest, AFileThatCannotBeWrittenIsReportedAndNothingIsLeft) {
    const QString file = path("nera/aplanko/planas.pdf");
    const ResultRecord r = PdfListWriter::Write(chart(), file, QDate(2024, 3, 15));
    EXPECT_FALSE(r.ok());
    EXPECT_TRUE(r.Text.contains(QStringLiteral("Nepavyko įrašyti failo"))) << r.Text.toStdString();
    EXPECT_FALSE(QFile::exists(file));
}

} // namespace
} // namespace orvo::reports
