// The spreadsheet export as a real .xlsx file, opened with the system's unzip: the
// archive is sound, every part is well-formed XML, amounts are numbers an accountant
// can sum and everything else keeps its Lithuanian text.
#include "reports/list_report.h"
#include "reports/xlsx_list_writer.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace orvo::reports {
namespace {

struct Unzipped {
    int ExitCode = -1;
    QByteArray Out;
};

Unzipped unzip(const QStringList& args) {
    QProcess p;
    p.start(QStringLiteral("unzip"), args);
    Unzipped u;
    if (!p.waitForFinished(60000))
        return u;
    u.ExitCode = p.exitCode();
    u.Out = p.readAllStandardOutput();
    return u;
}

QString wellFormedProblem(const QByteArray& xml) {
    QXmlStreamReader r(xml);
    while (!r.atEnd())
        r.readNext();
    return r.hasError() ? r.errorString() : QString();
}

// The cells of a sheet as reference -> (type, style, text or value).
struct Cell {
    QString Type, Style, Text;
};

QMap<QString, Cell> cellsOf(const QByteArray& xml) {
    QMap<QString, Cell> cells;
    QXmlStreamReader r(xml);
    QString ref;
    while (!r.atEnd()) {
        r.readNext();
        if (r.isStartElement() && r.name() == QLatin1String("c")) {
            ref = r.attributes().value(QStringLiteral("r")).toString();
            cells[ref] = {r.attributes().value(QStringLiteral("t")).toString(),
                          r.attributes().value(QStringLiteral("s")).toString(), QString()};
        } else if (r.isStartElement() &&
                   (r.name() == QLatin1String("t") || r.name() == QLatin1String("v"))) {
            cells[ref].Text = r.readElementText();
        }
    }
    return cells;
}

ListReport turnover() {
    ListReport r;
    r.Title = QStringLiteral("Sąskaitų apyvarta: 2024 m. kovo mėn.");
    r.AddColumn(QStringLiteral("Sąskaita"), 1);
    r.AddColumn(QStringLiteral("Pavadinimas"), 3);
    r.AddColumn(QStringLiteral("Debetas"), 1, true);
    r.AddRow({QStringLiteral("24"), QStringLiteral("Per vienus metus gautinos sumos"),
              QStringLiteral("1 234,56")},
             true);
    r.AddRow({QStringLiteral("2410"), QStringLiteral("Pirkėjų įsiskolinimai – Ąžuolų baldai"),
              QStringLiteral("-0,01")},
             false, 1);
    r.AddRow(
        {QStringLiteral("2420"), QStringLiteral("Kitos <gautinos> & sumos"), QStringLiteral(" ")});
    return r;
}

class XlsxListWriterTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        file_ = dir_.filePath(QStringLiteral("apyvarta.xlsx"));
        ASSERT_TRUE(XlsxListWriter::Write(turnover(), file_).ok());
    }
    QByteArray part(const char* name) {
        const Unzipped u = unzip({QStringLiteral("-p"), file_, QString::fromLatin1(name)});
        EXPECT_EQ(u.ExitCode, 0) << name;
        return u.Out;
    }
    QTemporaryDir dir_;
    QString file_;
};

TEST_F(XlsxListWriterTest, TheArchiveIsSoundAndEveryPartIsWellFormed) {
    const Unzipped test = unzip({QStringLiteral("-t"), file_});
    EXPECT_EQ(test.ExitCode, 0) << test.Out.toStdString();
    // unzip reads brackets in a name as a pattern, so the first part is escaped.
    for (const char* name :
         {"\\[Content_Types\\].xml", "_rels/.rels", "xl/workbook.xml", "xl/_rels/workbook.xml.rels",
          "xl/worksheets/sheet1.xml", "xl/styles.xml"}) {
        const QByteArray xml = part(name);
        ASSERT_FALSE(xml.isEmpty()) << name;
        EXPECT_EQ(wellFormedProblem(xml), QString()) << name;
    }
}

TEST_F(XlsxListWriterTest, AmountsAreNumbersAndTextsKeepTheirLetters) {
    const QMap<QString, Cell> cells = cellsOf(part("xl/worksheets/sheet1.xml"));
    EXPECT_EQ(cells.value(QStringLiteral("A1")).Text,
              QStringLiteral("Sąskaitų apyvarta: 2024 m. kovo mėn."));
    EXPECT_EQ(cells.value(QStringLiteral("C2")).Text, QStringLiteral("Debetas"));
    // The group's amount is a bold number, the nested row's a plain one.
    EXPECT_EQ(cells.value(QStringLiteral("C3")).Type, QString());
    EXPECT_EQ(cells.value(QStringLiteral("C3")).Text.toDouble(), 1234.56);
    EXPECT_EQ(cells.value(QStringLiteral("C3")).Style, QStringLiteral("3"));
    EXPECT_EQ(cells.value(QStringLiteral("C4")).Text.toDouble(), -0.01);
    EXPECT_EQ(cells.value(QStringLiteral("C4")).Style, QStringLiteral("2"));
    EXPECT_EQ(cells.value(QStringLiteral("B4")).Type, QStringLiteral("inlineStr"));
    EXPECT_EQ(cells.value(QStringLiteral("B4")).Text,
              QStringLiteral("Pirkėjų įsiskolinimai – Ąžuolų baldai"));
    EXPECT_EQ(cells.value(QStringLiteral("B5")).Text, QStringLiteral("Kitos <gautinos> & sumos"));
    // An amount cell that FormatAmount left blank is no number.
    EXPECT_FALSE(cells.contains(QStringLiteral("C5")));
}

TEST_F(XlsxListWriterTest, TheSheetIsNamedAfterTheTitleWithoutForbiddenCharacters) {
    const QByteArray workbook = part("xl/workbook.xml");
    EXPECT_TRUE(QString::fromUtf8(workbook).contains(
        QStringLiteral("name=\"Sąskaitų apyvarta 2024 m. kovo\"")))
        << workbook.toStdString();
    EXPECT_EQ(XlsxListWriter::SheetName(QStringLiteral("[?*]")), QStringLiteral("Lapas1"));
}

TEST(XlsxAmountTest, ReadsLithuanianAmountsAndNothingElse) {
    double v = 0;
    EXPECT_TRUE(XlsxListWriter::AmountOf(QStringLiteral("1 234,56"), &v));
    EXPECT_EQ(v, 1234.56);
    EXPECT_TRUE(XlsxListWriter::AmountOf(QStringLiteral("1\u00a0000,00"), &v));
    EXPECT_EQ(v, 1000.0);
    EXPECT_FALSE(XlsxListWriter::AmountOf(QStringLiteral("12,5 Eur"), &v));
    EXPECT_FALSE(XlsxListWriter::AmountOf(QStringLiteral(" "), &v));
    EXPECT_FALSE(XlsxListWriter::AmountOf(QStringLiteral("2024-03-15"), &v));
}

TEST(XlsxWriteTest, AFileThatCannotBeWrittenIsReported) {
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("nera/x.xlsx"));
    const ResultRecord r = XlsxListWriter::Write(turnover(), file);
    EXPECT_FALSE(r.ok());
    EXPECT_FALSE(QFile::exists(file));
}

} // namespace
} // namespace orvo::reports
