#include "host/methods/method_codes.h"
#include "host/methods/parameter_text.h"

#include <gtest/gtest.h>

using orvo::host::ParameterSyntax;
using orvo::host::ParameterText;
using orvo::host::ParameterToken;
using orvo::host::ParsedParameters;
namespace bo_codes = orvo::host::bo_codes;

namespace {

QStringList texts(const ParsedParameters& p) {
    QStringList out;
    for (const ParameterToken& t : p.values)
        out.append(t.text);
    return out;
}

ParsedParameters parse(const char* text, ParameterSyntax syntax = ParameterSyntax::Quoted) {
    return ParameterText::Parse(QString::fromUtf8(text), syntax);
}

void expectError(const ParsedParameters& p, const char* fragment) {
    EXPECT_FALSE(p.ok());
    EXPECT_EQ(p.Code, bo_codes::BadParameterText);
    EXPECT_TRUE(p.Text.startsWith(QStringLiteral("Klaidingas parametrų tekstas: ")))
        << p.Text.toStdString();
    EXPECT_TRUE(p.Text.contains(QString::fromUtf8(fragment)))
        << "text: " << p.Text.toStdString() << "\nexpected to contain: " << fragment;
    EXPECT_TRUE(p.values.isEmpty());
}

} // namespace

TEST(ParameterText, EmptyTextHasNoValues) {
    const auto p = parse("");
    ASSERT_TRUE(p.ok());
    EXPECT_TRUE(p.values.isEmpty());
}

TEST(ParameterText, BlanksOnlyHaveNoValues) {
    const auto p = parse("   \t ");
    ASSERT_TRUE(p.ok());
    EXPECT_TRUE(p.values.isEmpty());
}

TEST(ParameterText, NoneMeansNoValuesInAnyCaseAndWithBlanks) {
    for (const char* t : {"None", " None ", "none", "NONE"}) {
        for (auto syntax :
             {ParameterSyntax::Quoted, ParameterSyntax::Semicolon, ParameterSyntax::Whole}) {
            const auto p = parse(t, syntax);
            ASSERT_TRUE(p.ok()) << t;
            EXPECT_TRUE(p.values.isEmpty()) << t;
        }
    }
}

TEST(ParameterText, QuotedNoneIsATextNotTheWordNone) {
    const auto p = parse("'None'");
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), QStringList{QStringLiteral("None")});
}

TEST(ParameterText, SingleQuotedValue) {
    const auto p = parse("'2710'");
    ASSERT_TRUE(p.ok());
    ASSERT_EQ(p.values.size(), 1);
    EXPECT_EQ(p.values[0].kind, ParameterToken::Kind::Quoted);
    EXPECT_EQ(p.values[0].text, QStringLiteral("2710"));
    EXPECT_EQ(p.values[0].position, 1);
}

TEST(ParameterText, QuotedValuesJoinedByCommasWithPositions) {
    const auto p = parse("'O0201500123','2710,1'");
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"O0201500123", "2710,1"}));
    EXPECT_EQ(p.values[0].position, 1);
    EXPECT_EQ(p.values[1].position, 15);
}

TEST(ParameterText, BlanksAroundCommasAreAllowed) {
    const auto p = parse("  'a' ,  'b',\t'c'  ");
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(p.values[0].position, 3);
    EXPECT_EQ(p.values[1].position, 10);
}

TEST(ParameterText, BlanksInsideQuotesAreKept) {
    const auto p = parse("'   ',' x '");
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), (QStringList{"   ", " x "}));
}

TEST(ParameterText, DoubledQuoteInsideAValueIsOneQuote) {
    const auto p = parse("'O''Brien','''','',''''''");
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"O'Brien", "'", "", "''"}));
}

TEST(ParameterText, CommasAndSemicolonsInsideQuotesStayInTheValue) {
    const auto p = parse("'a,b;c','d'");
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), (QStringList{"a,b;c", "d"}));
}

TEST(ParameterText, UnquotedNumbersIntegerDecimalNegative) {
    const auto p = parse("17, -3, 0.5, -12.75, +4, 1E-05, .25");
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"17", "-3", "0.5", "-12.75", "+4", "1E-05", ".25"}));
    for (const auto& t : p.values)
        EXPECT_EQ(t.kind, ParameterToken::Kind::Number);
}

TEST(ParameterText, QuotedDateStaysAText) {
    const auto p = parse("'2024.03.15'");
    ASSERT_TRUE(p.ok());
    ASSERT_EQ(p.values.size(), 1);
    EXPECT_EQ(p.values[0].kind, ParameterToken::Kind::Quoted);
    EXPECT_EQ(p.values[0].text, QStringLiteral("2024.03.15"));
}

TEST(ParameterText, DebtQueryTextAsTheComponentWritesIt) {
    const auto p = parse("'0','2410','2024.03.15','O0000100123',-1");
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"0", "2410", "2024.03.15", "O0000100123", "-1"}));
    EXPECT_EQ(p.values[4].kind, ParameterToken::Kind::Number);
}

TEST(ParameterText, DebtQueryWithAppendedFlag) {
    const auto p = parse("'0','2410','2024.03.15','',1,1");
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"0", "2410", "2024.03.15", "", "1", "1"}));
}

TEST(ParameterText, AutoNumberTextMixesNumbersAndQuotedTexts) {
    const auto p = parse("17,5,'O0201504',0,''");
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"17", "5", "O0201504", "0", ""}));
}

TEST(ParameterText, LithuanianLettersInsideQuotes) {
    const auto p = parse("'Žąsų ūkis „Šešupė“'");
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(p.values[0].text, QString::fromUtf8("Žąsų ūkis „Šešupė“"));
}

TEST(ParameterText, UnquotedTrueAndFalseAreBareWords) {
    const auto p = parse("True,false,'x'");
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"True", "false", "x"}));
    EXPECT_EQ(p.values[0].kind, ParameterToken::Kind::Bare);
}

TEST(ParameterText, UnterminatedQuoteNamesWhereItOpened) {
    expectError(parse("'abc"), "neuždaryta kabutė, atidaryta 1 pozicijoje");
    expectError(parse("'a','b"), "neuždaryta kabutė, atidaryta 5 pozicijoje");
    // A doubled quote at the end is a quote inside the value, not its end.
    expectError(parse("'a''"), "neuždaryta kabutė, atidaryta 1 pozicijoje");
}

TEST(ParameterText, JunkBetweenValuesNamesItsPosition) {
    expectError(parse("'a' x 'b'"), "5 pozicijoje laukta kablelio, rasta 'x'");
    expectError(parse("'a';'b'"), "4 pozicijoje laukta kablelio, rasta ';'");
    expectError(parse("12 13"), "4 pozicijoje laukta kablelio, rasta '13'");
}

TEST(ParameterText, StrayQuoteAfterAValueNamesItsPosition) {
    expectError(parse("'a' 'b'"), "nereikalinga kabutė 5 pozicijoje");
    expectError(parse("12'"), "nereikalinga kabutė 3 pozicijoje");
}

TEST(ParameterText, UnquotedWordIsRefused) {
    expectError(parse("'a',abc"), "reikšmė 'abc' 5 pozicijoje turi būti kabutėse");
    expectError(parse("O0201500123"), "reikšmė 'O0201500123' 1 pozicijoje turi būti kabutėse");
}

TEST(ParameterText, MalformedNumberIsRefused) {
    expectError(parse("12abc"), "netinkamas skaičius '12abc' 1 pozicijoje");
    expectError(parse("'x',1.2.3"), "netinkamas skaičius '1.2.3' 5 pozicijoje");
    expectError(parse("-"), "netinkamas skaičius '-' 1 pozicijoje");
    // A date written without quotes is not a number.
    expectError(parse("2024.03.15"), "netinkamas skaičius '2024.03.15' 1 pozicijoje");
}

TEST(ParameterText, MissingValueBetweenCommasOrAtTheEnds) {
    expectError(parse("'a',,'b'"), "trūksta reikšmės 5 pozicijoje");
    expectError(parse("'a',"), "trūksta reikšmės 5 pozicijoje");
    expectError(parse("'a', "), "trūksta reikšmės 6 pozicijoje");
    expectError(parse(",'a'"), "trūksta reikšmės 1 pozicijoje");
}

TEST(ParameterText, UnexpectedCharacterIsShownEvenWhenInvisible) {
    expectError(parse("'a',;"), "netikėtas ženklas ';' 5 pozicijoje");
    expectError(parse(QByteArray("'a',\x01").constData()),
                "netikėtas ženklas '\\u0001' 5 pozicijoje");
}

TEST(ParameterText, SemicolonSyntaxSplitsAtEverySemicolon) {
    const auto p = parse("17;abc;O0201500", ParameterSyntax::Semicolon);
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), (QStringList{"17", "abc", "O0201500"}));
    EXPECT_EQ(p.values[0].kind, ParameterToken::Kind::Bare);
    EXPECT_EQ(p.values[1].position, 4);
    EXPECT_EQ(p.values[2].position, 8);
}

TEST(ParameterText, SemicolonSyntaxKeepsBlanksAndEmptyPieces) {
    const auto p = parse("   ;a b;;", ParameterSyntax::Semicolon);
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), (QStringList{"   ", "a b", "", ""}));
}

TEST(ParameterText, SemicolonSyntaxWrappedInOneQuotePair) {
    const auto p = parse("'2024.01.01;O''Brien;5'", ParameterSyntax::Semicolon);
    ASSERT_TRUE(p.ok()) << p.Text.toStdString();
    EXPECT_EQ(texts(p), (QStringList{"2024.01.01", "O'Brien", "5"}));
    EXPECT_EQ(p.values[0].kind, ParameterToken::Kind::Quoted);
    EXPECT_EQ(p.values[0].position, 2);
    EXPECT_EQ(p.values[1].position, 13);
    EXPECT_EQ(p.values[2].position, 22);
}

TEST(ParameterText, SemicolonSyntaxKeepsCommasAndQuotesOfUnwrappedText) {
    const auto p = parse("a,b;c'd", ParameterSyntax::Semicolon);
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), (QStringList{"a,b", "c'd"}));
}

TEST(ParameterText, SemicolonSyntaxRefusesABrokenWrapper) {
    expectError(parse("'a;b", ParameterSyntax::Semicolon),
                "neuždaryta kabutė, atidaryta 1 pozicijoje");
    expectError(parse("'a;b' c", ParameterSyntax::Semicolon),
                "7 pozicijoje laukta teksto pabaigos");
}

TEST(ParameterText, WholeSyntaxTakesTheTextAsItStands) {
    for (const char* t : {"2710", "O0201400123", "USD", "a,b 'c'", "2024.03.15"}) {
        const auto p = parse(t, ParameterSyntax::Whole);
        ASSERT_TRUE(p.ok()) << t;
        EXPECT_EQ(texts(p), QStringList{QString::fromUtf8(t)});
        EXPECT_EQ(p.values[0].kind, ParameterToken::Kind::Bare);
        EXPECT_EQ(p.values[0].position, 1);
    }
}

TEST(ParameterText, WholeSyntaxThreeBlanksAreOneValue) {
    const auto p = parse("   ", ParameterSyntax::Whole);
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), QStringList{"   "});
}

TEST(ParameterText, WholeSyntaxRemovesOneQuotePair) {
    const auto p = parse(" 'O''Brien, UAB' ", ParameterSyntax::Whole);
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), QStringList{"O'Brien, UAB"});
    EXPECT_EQ(p.values[0].kind, ParameterToken::Kind::Quoted);
    EXPECT_EQ(p.values[0].position, 2);
}

TEST(ParameterText, WholeSyntaxRefusesTwoQuotedValues) {
    expectError(parse("'a' 'b'", ParameterSyntax::Whole), "nereikalinga kabutė 5 pozicijoje");
    expectError(parse("'a','b'", ParameterSyntax::Whole), "4 pozicijoje laukta teksto pabaigos");
}

TEST(ParameterText, QuoteDoublesEveryQuote) {
    EXPECT_EQ(ParameterText::Quote(QStringLiteral("O'Brien")), QStringLiteral("'O''Brien'"));
    EXPECT_EQ(ParameterText::Quote(QString()), QStringLiteral("''"));
}

TEST(ParameterText, JoinOfNothingIsNone) {
    EXPECT_EQ(ParameterText::Join({}), QStringLiteral("None"));
}

TEST(ParameterText, JoinedValuesParseBack) {
    const QStringList values{"a", "", "O'B", "x,y", "2024.03.15", "'", " "};
    const auto p = ParameterText::Parse(ParameterText::Join(values));
    ASSERT_TRUE(p.ok());
    EXPECT_EQ(texts(p), values);
}
