// The RTF export read back the way a word processor reads it: groups balance, every
// row is a table row, the Lithuanian letters come back from their Unicode escapes, and
// braces or backslashes in a name do not break the document.
#include "reports/list_report.h"
#include "reports/rtf_list_writer.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace orvo::reports {
namespace {

// The text of an RTF document: control words dropped, \uN? decoded, escaped symbols
// kept, \cell and \par read as a separator.
QString plainText(const QByteArray& rtf) {
    QString out;
    for (int i = 0; i < rtf.size(); ++i) {
        const char c = rtf[i];
        if (c == '{' || c == '}' || c == '\n')
            continue;
        if (c != '\\') {
            out += QLatin1Char(c);
            continue;
        }
        const char next = i + 1 < rtf.size() ? rtf[i + 1] : '\0';
        if (next == '\\' || next == '{' || next == '}') {
            out += QLatin1Char(next);
            ++i;
            continue;
        }
        int j = i + 1;
        while (j < rtf.size() && std::isalpha(static_cast<unsigned char>(rtf[j])))
            ++j;
        const QByteArray word = rtf.mid(i + 1, j - i - 1);
        int k = j;
        if (k < rtf.size() && (rtf[k] == '-' || std::isdigit(static_cast<unsigned char>(rtf[k])))) {
            ++k;
            while (k < rtf.size() && std::isdigit(static_cast<unsigned char>(rtf[k])))
                ++k;
        }
        const QByteArray number = rtf.mid(j, k - j);
        // A space right after a control word delimits it; \uN is followed instead by
        // its one fallback character, which a Unicode reader skips.
        if (k < rtf.size() && rtf[k] == ' ')
            ++k;
        else if (word == "u" && k < rtf.size())
            ++k;
        if (word == "u")
            out += QChar(ushort(number.toShort()));
        else if (word == "cell" || word == "par" || word == "row")
            out += QLatin1Char('|');
        i = k - 1;
    }
    return out;
}

ListReport templates() {
    ListReport r;
    r.Title = QStringLiteral("Šablonai");
    r.AddColumn(QStringLiteral("Pavadinimas"), 3);
    r.AddColumn(QStringLiteral("Debetas"), 1);
    r.AddColumn(QStringLiteral("Kreditas"), 1);
    r.AddColumn(QStringLiteral("Koeficijentas"), 1, true);
    r.AddRow({QStringLiteral("Pardavimai {ES} \\ vidaus"), QString(), QString(), QString()}, true);
    r.AddRow({QStringLiteral("Prekių pardavimas su PVM"), QStringLiteral("2410"),
              QStringLiteral("5000"), QStringLiteral("1")},
             false, 1);
    r.AddRow({QString(), QStringLiteral("2410"), QStringLiteral("4492"), QStringLiteral("0,21")},
             false, 1);
    return r;
}

TEST(RtfListWriterTest, GroupsBalanceAndEveryRowIsATableRow) {
    const QByteArray rtf = RtfListWriter::Render(templates());
    ASSERT_TRUE(rtf.startsWith("{\\rtf1"));
    int depth = 0;
    for (int i = 0; i < rtf.size(); ++i) {
        if (rtf[i] == '\\') {
            ++i;
            continue;
        }
        depth += rtf[i] == '{' ? 1 : rtf[i] == '}' ? -1 : 0;
        ASSERT_GE(depth, 0) << i;
    }
    EXPECT_EQ(depth, 0);
    // Captions and three rows.
    EXPECT_EQ(rtf.count("\\row"), 4);
    EXPECT_EQ(rtf.count("\\cell\n"), 16);
}

TEST(RtfListWriterTest, LithuanianLettersAndEscapedSymbolsComeBack) {
    const QString text = plainText(RtfListWriter::Render(templates()));
    EXPECT_TRUE(text.contains(QStringLiteral("Šablonai"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Prekių pardavimas su PVM|2410|5000|1|")))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Pardavimai {ES} \\ vidaus|"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("|2410|4492|0,21|")));
}

TEST(RtfListWriterTest, BoldRowsAndRightAlignedAmounts) {
    const QByteArray rtf = RtfListWriter::Render(templates());
    EXPECT_TRUE(rtf.contains("\\ql\\b Pardavimai"));
    EXPECT_TRUE(rtf.contains("\\ql\\li280\\b0 Prek"));
    EXPECT_TRUE(rtf.contains("\\qr\\b0 0,21\\cell"));
    EXPECT_EQ(RtfListWriter::Escaped(QStringLiteral("ą")), QByteArray("\\u261?"));
    EXPECT_EQ(RtfListWriter::Escaped(QStringLiteral("a\nb")), QByteArray("a\\line b"));
}

TEST(RtfListWriterTest, AFileThatCannotBeWrittenIsReported) {
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("nera/x.rtf"));
    EXPECT_FALSE(RtfListWriter::Write(templates(), file).ok());
    EXPECT_FALSE(QFile::exists(file));
    const QString good = dir.filePath(QStringLiteral("sablonai.rtf"));
    ASSERT_TRUE(RtfListWriter::Write(templates(), good).ok());
    QFile f(good);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), RtfListWriter::Render(templates()));
}

} // namespace
} // namespace orvo::reports
