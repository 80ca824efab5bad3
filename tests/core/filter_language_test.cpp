// The filter language as a recordset applies it: comparisons, like, And/OR with
// parentheses, quoted texts, numbers, dates, Null, and the refusal of texts that cannot
// be read (which must leave the view empty, never show every row).
#include "core/filter_expression.h"
#include "core/recordset.h"

#include <gtest/gtest.h>

using namespace orvo;

namespace {

class FilterLanguage : public ::testing::Test {
protected:
    void SetUp() override {
        rs = Recordset::Create({
            FieldDef::Make("ID", FieldType::Integer),
            FieldDef::Make("AccountD", FieldType::VarWChar, 20),
            FieldDef::Make("SumA", FieldType::Double),
            FieldDef::Make("DateD", FieldType::Date),
            FieldDef::Make("Qty", FieldType::Integer),
            FieldDef::Make("MainAccountFlag", FieldType::Boolean),
            FieldDef::Make("CurrCode", FieldType::VarWChar, 3),
            FieldDef::Make("FOIDR", FieldType::VarWChar, 50),
            FieldDef::Make("Comment", FieldType::VarWChar, 100),
            FieldDef::Make("Code", FieldType::VarWChar, 10),
            FieldDef::Make("Note", FieldType::Variant),
        });
        add(1, "2410", 150.0, QDate(2024, 3, 1), 1, true, "EUR", "O0000100123", "O'Brien", "10",
            Value(5.0));
        add(2, "2420", 50.0, QDate(2024, 2, 15), 2, false, "USD", "O0001401007", "Plain", "9",
            Value("text"));
        add(3, "5310", 1200.5, QDate(2024, 3, 20), 3, false, "   ", Value(), Value(), "abc",
            Value(QDate(2024, 1, 1)));
        add(4, "2411", -20.0, Value(), Value(), true, "eur", "O0000100999", "it's", "100", Value());
        add(5, Value(), 100.0, QDate(2023, 12, 31), 5, Value(), Value(), "O0201500777", "", Value(),
            Value(42));
        rs->AcceptChanges();
    }

    void add(int id, const Value& account, double sum, const Value& date, const Value& qty,
             const Value& flag, const Value& curr, const Value& foidr, const Value& comment,
             const Value& code, const Value& note) {
        rs->AddNew();
        ASSERT_TRUE(rs->SetField("ID", id));
        ASSERT_TRUE(rs->SetField("AccountD", account));
        ASSERT_TRUE(rs->SetField("SumA", sum));
        ASSERT_TRUE(rs->SetField("DateD", date));
        ASSERT_TRUE(rs->SetField("Qty", qty));
        ASSERT_TRUE(rs->SetField("MainAccountFlag", flag));
        ASSERT_TRUE(rs->SetField("CurrCode", curr));
        ASSERT_TRUE(rs->SetField("FOIDR", foidr));
        ASSERT_TRUE(rs->SetField("Comment", comment));
        ASSERT_TRUE(rs->SetField("Code", code));
        ASSERT_TRUE(rs->SetField("Note", note));
        rs->Update();
    }

    // The IDs of the visible rows, in view order, after a filter that must be readable.
    QList<int> ids(const QString& filter) {
        const ResultRecord r = rs->SetFilter(filter);
        EXPECT_EQ(r.Code, 0) << filter.toStdString() << ": " << r.Text.toStdString();
        QList<int> out;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            out.append(rs->Field("ID").toInt32());
        EXPECT_EQ(out.size(), rs->RecordCount());
        return out;
    }

    // A filter that cannot be read: a non-zero code, a text, and no visible row.
    void expectRefused(const QString& filter, const QString& mentions = QString()) {
        SCOPED_TRACE(filter.toStdString());
        const ResultRecord r = rs->SetFilter(filter);
        EXPECT_NE(r.Code, 0);
        EXPECT_FALSE(r.Text.isEmpty());
        EXPECT_TRUE(r.Text.startsWith(QStringLiteral("Filtras neperskaitomas: ")))
            << r.Text.toStdString();
        if (!mentions.isEmpty()) {
            EXPECT_TRUE(r.Text.contains(mentions)) << r.Text.toStdString();
        }
        EXPECT_EQ(rs->RecordCount(), 0);
        EXPECT_TRUE(rs->Bof());
        EXPECT_TRUE(rs->Eof());
    }

    RecordsetPtr rs;
};

using Ids = QList<int>;

} // namespace

TEST_F(FilterLanguage, EmptyFilterShowsEveryRow) {
    EXPECT_EQ(ids(""), (Ids{1, 2, 3, 4, 5}));
}

TEST_F(FilterLanguage, AllBlankFilterShowsEveryRow) {
    EXPECT_EQ(ids("   \t "), (Ids{1, 2, 3, 4, 5}));
}

TEST_F(FilterLanguage, EqualsOnTextIgnoresCase) {
    EXPECT_EQ(ids("CurrCode = 'EUR'"), (Ids{1, 4}));
}

TEST_F(FilterLanguage, NotEqualsOnTextSkipsNullValues) {
    EXPECT_EQ(ids("CurrCode <> 'EUR'"), (Ids{2, 3}));
}

TEST_F(FilterLanguage, TextOfBlanksEqualsItself) {
    EXPECT_EQ(ids("CurrCode = '   '"), (Ids{3}));
}

TEST_F(FilterLanguage, EmptyQuotedTextMatchesEmptyTextNotNull) {
    EXPECT_EQ(ids("Comment = ''"), (Ids{5}));
}

TEST_F(FilterLanguage, LikeWithTrailingStar) {
    EXPECT_EQ(ids("AccountD like '24*'"), (Ids{1, 2, 4}));
}

TEST_F(FilterLanguage, LikeWithTrailingPercent) {
    EXPECT_EQ(ids("AccountD like '24%'"), (Ids{1, 2, 4}));
}

TEST_F(FilterLanguage, LikeWithLeadingStar) {
    EXPECT_EQ(ids("FOIDR like '*007'"), (Ids{2}));
}

TEST_F(FilterLanguage, LikeWithWildcardsAtBothEnds) {
    EXPECT_EQ(ids("FOIDR like '*0001*'"), (Ids{1, 2, 4}));
}

TEST_F(FilterLanguage, LikeWithWildcardInTheMiddle) {
    EXPECT_EQ(ids("FOIDR like 'O*999'"), (Ids{4}));
}

TEST_F(FilterLanguage, LikeIgnoresCase) {
    EXPECT_EQ(ids("FOIDR like 'o0000100*'"), (Ids{1, 4}));
}

TEST_F(FilterLanguage, LikeWithoutWildcardMatchesTheWholeText) {
    EXPECT_EQ(ids("AccountD like '241'"), Ids{});
    EXPECT_EQ(ids("AccountD like '2410'"), (Ids{1}));
}

TEST_F(FilterLanguage, LikeOfAStarAloneMatchesEveryNonNullValue) {
    EXPECT_EQ(ids("FOIDR like '*'"), (Ids{1, 2, 4, 5}));
}

TEST_F(FilterLanguage, OddSpacingAroundLikeIsRead) {
    EXPECT_EQ(ids(" FOIDR  like 'O0000100*' "), (Ids{1, 4}));
}

TEST_F(FilterLanguage, NotLikeKeepsTheOtherNonNullRows) {
    EXPECT_EQ(ids("AccountD Not Like '24*'"), (Ids{3}));
}

TEST_F(FilterLanguage, GreaterThanANumber) {
    EXPECT_EQ(ids("SumA > 100"), (Ids{1, 3}));
}

TEST_F(FilterLanguage, GreaterOrEqualAndLessOrEqual) {
    EXPECT_EQ(ids("SumA >= 100"), (Ids{1, 3, 5}));
    EXPECT_EQ(ids("SumA <= 50"), (Ids{2, 4}));
}

TEST_F(FilterLanguage, NegativeNumber) {
    EXPECT_EQ(ids("SumA < -10"), (Ids{4}));
    EXPECT_EQ(ids("SumA = -20"), (Ids{4}));
}

TEST_F(FilterLanguage, NumberWithADecimalDot) {
    EXPECT_EQ(ids("SumA = 1200.5"), (Ids{3}));
}

TEST_F(FilterLanguage, NotEqualsOnNumbers) {
    EXPECT_EQ(ids("SumA <> 100"), (Ids{1, 2, 3, 4}));
}

TEST_F(FilterLanguage, IntegerFieldEquality) {
    EXPECT_EQ(ids("Qty = 3"), (Ids{3}));
}

TEST_F(FilterLanguage, NumberWrittenAsTextAgainstNumberField) {
    EXPECT_EQ(ids("SumA = '150'"), (Ids{1}));
    EXPECT_EQ(ids("SumA = '1200,5'"), (Ids{3}));
}

TEST_F(FilterLanguage, AndJoinsLikeAndComparison) {
    EXPECT_EQ(ids("AccountD like '24*' And SumA > 100"), (Ids{1}));
}

TEST_F(FilterLanguage, OrJoinsComparisons) {
    EXPECT_EQ(ids("CurrCode = 'USD' OR Qty = 3"), (Ids{2, 3}));
}

TEST_F(FilterLanguage, KeywordsInAnyCase) {
    EXPECT_EQ(ids("AccountD LIKE '24*' and SumA > 0 oR Qty = 5"), (Ids{1, 2, 5}));
}

TEST_F(FilterLanguage, ParenthesesAroundAndGroupsJoinedByOr) {
    EXPECT_EQ(ids("(AccountD like '24*' And SumA > 100) OR (CurrCode = 'USD' And Qty = 2)"),
              (Ids{1, 2}));
}

TEST_F(FilterLanguage, AndBindsTighterThanOr) {
    EXPECT_EQ(ids("Qty = 5 OR AccountD like '24*' And SumA < 0"), (Ids{4, 5}));
}

TEST_F(FilterLanguage, NestedParenthesesChangeTheGrouping) {
    EXPECT_EQ(ids("((Qty = 5 OR AccountD like '24*')) And (SumA < 0 OR (SumA > 99 And Qty > 4))"),
              (Ids{4, 5}));
}

TEST_F(FilterLanguage, NotNegatesAGroup) {
    EXPECT_EQ(ids("Not (SumA > 100)"), (Ids{2, 4, 5}));
}

TEST_F(FilterLanguage, InListMatchesAnyListedValue) {
    EXPECT_EQ(ids("Qty In (1, 3, 5)"), (Ids{1, 3, 5}));
    EXPECT_EQ(ids("CurrCode Not In ('eur')"), (Ids{2, 3}));
}

TEST_F(FilterLanguage, DoubledQuoteInsideQuotedText) {
    EXPECT_EQ(ids("Comment = 'O''Brien'"), (Ids{1}));
    EXPECT_EQ(ids("Comment like '*''s'"), (Ids{4}));
}

TEST_F(FilterLanguage, DateWrittenWithDotsInQuotes) {
    EXPECT_EQ(ids("DateD >= '2024.03.01'"), (Ids{1, 3}));
}

TEST_F(FilterLanguage, DateWrittenWithDashesInQuotes) {
    EXPECT_EQ(ids("DateD = '2024-02-15'"), (Ids{2}));
}

TEST_F(FilterLanguage, DateBetweenHashes) {
    EXPECT_EQ(ids("DateD < #2024-03-01#"), (Ids{2, 5}));
}

TEST_F(FilterLanguage, DateRangeJoinedByAnd) {
    EXPECT_EQ(ids("DateD >= '2024.01.01' And DateD <= '2024.03.01'"), (Ids{1, 2}));
}

TEST_F(FilterLanguage, DatesCompareAsDatesNotAsTexts) {
    // As texts "2023.12.31" < "2024.1.5" would hold too; as dates 2024-01-05 < 2024-02-15.
    EXPECT_EQ(ids("DateD > #2024-01-05# And DateD < '2024-02-16'"), (Ids{2}));
}

TEST_F(FilterLanguage, FieldNamesIgnoreCase) {
    EXPECT_EQ(ids("accountd LIKE '24*' AND suma > 100"), (Ids{1}));
}

TEST_F(FilterLanguage, FieldNameInBrackets) {
    EXPECT_EQ(ids("[SumA] > 100 And [currcode] = 'EUR'"), (Ids{1}));
}

TEST_F(FilterLanguage, EqualsNullFindsNullValues) {
    EXPECT_EQ(ids("DateD = Null"), (Ids{4}));
}

TEST_F(FilterLanguage, NotEqualsNullFindsFilledValues) {
    EXPECT_EQ(ids("AccountD <> Null"), (Ids{1, 2, 3, 4}));
}

TEST_F(FilterLanguage, IsNullAndIsNotNull) {
    EXPECT_EQ(ids("CurrCode Is Null"), (Ids{5}));
    EXPECT_EQ(ids("MainAccountFlag is not null"), (Ids{1, 2, 3, 4}));
}

TEST_F(FilterLanguage, ComparisonWithANullValueIsFalse) {
    EXPECT_EQ(ids("DateD < '2100-01-01'"), (Ids{1, 2, 3, 5}));
    EXPECT_EQ(ids("DateD <> '2024-03-01'"), (Ids{2, 3, 5}));
}

TEST_F(FilterLanguage, TextFieldAgainstNumberComparesNumerically) {
    // "9" < "10" < "100" as numbers; "abc" reads as no number and never matches.
    EXPECT_EQ(ids("Code > 9"), (Ids{1, 4}));
    EXPECT_EQ(ids("Code = 9"), (Ids{2}));
}

TEST_F(FilterLanguage, TextFieldAgainstQuotedTextComparesAsText) {
    EXPECT_EQ(ids("Code > '9'"), (Ids{3}));
}

TEST_F(FilterLanguage, BooleanFieldAgainstZero) {
    EXPECT_EQ(ids("MainAccountFlag <> 0"), (Ids{1, 4}));
    EXPECT_EQ(ids("MainAccountFlag = 0"), (Ids{2, 3}));
}

TEST_F(FilterLanguage, BooleanFieldTrueIsMinusOne) {
    EXPECT_EQ(ids("MainAccountFlag = -1"), (Ids{1, 4}));
    EXPECT_EQ(ids("MainAccountFlag = True"), (Ids{1, 4}));
}

TEST_F(FilterLanguage, VariantFieldComparesByItsValueKind) {
    EXPECT_EQ(ids("Note > 10"), (Ids{5}));
    EXPECT_EQ(ids("Note = 'TEXT'"), (Ids{2}));
    EXPECT_EQ(ids("Note = #2024-01-01#"), (Ids{3}));
}

TEST_F(FilterLanguage, ANewFilterReplacesTheFormerOne) {
    EXPECT_EQ(ids("Qty = 1"), (Ids{1}));
    EXPECT_EQ(ids("Qty = 2"), (Ids{2}));
    EXPECT_EQ(rs->Filter(), QStringLiteral("Qty = 2"));
}

TEST_F(FilterLanguage, AFilterThatMatchesNothingLeavesRecordCountZero) {
    EXPECT_EQ(ids("SumA > 1000000"), Ids{});
    EXPECT_EQ(rs->RecordCount(), 0);
    EXPECT_TRUE(rs->Bof());
    EXPECT_TRUE(rs->Eof());
    EXPECT_TRUE(rs->Field("ID").isNull());
}

TEST_F(FilterLanguage, ClearingTheFilterRestoresEveryRow) {
    ids("SumA > 1000000");
    EXPECT_EQ(ids(""), (Ids{1, 2, 3, 4, 5}));
}

TEST_F(FilterLanguage, ASuccessfulFilterMovesToTheFirstRow) {
    rs->MoveLast();
    ASSERT_EQ(rs->SetFilter("SumA > 0").Code, 0);
    EXPECT_EQ(rs->AbsolutePosition(), 1);
    EXPECT_EQ(rs->Field("ID").toInt32(), 1);
}

TEST_F(FilterLanguage, FilterIsAppliedToValuesAsTheyStandWhenSet) {
    rs->MoveFirst();
    ASSERT_TRUE(rs->SetField("SumA", 5.0));
    EXPECT_EQ(ids("SumA > 100"), (Ids{3}));
}

// --- Texts that cannot be read --------------------------------------------------------

TEST_F(FilterLanguage, RefusesAnUnclosedParenthesis) {
    expectRefused("(SumA > 1 And Qty = 1", QStringLiteral("skliaus"));
}

TEST_F(FilterLanguage, RefusesAnUnopenedClosingParenthesis) {
    expectRefused("SumA > 1)", QStringLiteral("')'"));
}

TEST_F(FilterLanguage, RefusesAnUnknownFieldAndNamesIt) {
    expectRefused("Nope = 1", QStringLiteral("Nope"));
}

TEST_F(FilterLanguage, RefusalTellsThePosition) {
    expectRefused("SumA > 1 And Nope = 1", QStringLiteral("pozicija 14"));
}

TEST_F(FilterLanguage, RefusesAMissingOperandAtTheEnd) {
    expectRefused("SumA >", QStringLiteral("trūksta reikšmės"));
}

TEST_F(FilterLanguage, RefusesAMissingOperandBeforeAnd) {
    expectRefused("SumA > And Qty = 1");
}

TEST_F(FilterLanguage, RefusesAnUnterminatedQuote) {
    expectRefused("AccountD = 'abc", QStringLiteral("kabutė"));
}

TEST_F(FilterLanguage, RefusesTrailingJunk) {
    expectRefused("SumA > 1 xyz", QStringLiteral("xyz"));
}

TEST_F(FilterLanguage, RefusesABareFieldName) {
    expectRefused("SumA");
}

TEST_F(FilterLanguage, RefusesABareWord) {
    expectRefused("hello");
}

TEST_F(FilterLanguage, RefusesAnUnquotedTextValue) {
    expectRefused("AccountD = abc", QStringLiteral("abc"));
}

TEST_F(FilterLanguage, RefusesADanglingAnd) {
    expectRefused("SumA > 1 And");
}

TEST_F(FilterLanguage, RefusesALeadingOr) {
    expectRefused("OR SumA > 1");
}

TEST_F(FilterLanguage, RefusesLikeWithoutAQuotedPattern) {
    expectRefused("AccountD like 24*");
}

TEST_F(FilterLanguage, RefusesEmptyParentheses) {
    expectRefused("()");
}

TEST_F(FilterLanguage, RefusesANonNumberAgainstANumberField) {
    expectRefused("SumA > 'abc'", QStringLiteral("SumA"));
}

TEST_F(FilterLanguage, RefusesAnImpossibleDate) {
    expectRefused("DateD = '2024-13-45'");
}

TEST_F(FilterLanguage, RefusesAnUnknownCharacter) {
    expectRefused("SumA @ 1", QStringLiteral("@"));
}

TEST_F(FilterLanguage, RefusesAnUnterminatedDate) {
    expectRefused("DateD = #2024-01-01");
}

TEST_F(FilterLanguage, RefusesTwoOperatorsInARow) {
    expectRefused("SumA > > 1");
}

TEST_F(FilterLanguage, RefusesNullWithAnOrderingOperator) {
    expectRefused("SumA < Null");
}

TEST_F(FilterLanguage, RefusesANumberRunningIntoLetters) {
    expectRefused("SumA > 12abc");
}

TEST_F(FilterLanguage, RefusesAnUnclosedBracketedName) {
    expectRefused("[SumA > 1");
}

TEST_F(FilterLanguage, UnreadableFilterAfterAGoodOneShowsNoRows) {
    ASSERT_EQ(ids("SumA > 0").size(), 4);
    expectRefused("SumA > 0 And (");
    EXPECT_EQ(rs->Filter(), QStringLiteral("SumA > 0 And ("));
}

TEST_F(FilterLanguage, UnreadableFilterStaysEmptyAfterSortAndMoves) {
    expectRefused("SumA ~ 0");
    ASSERT_EQ(rs->SetSort("SumA DESC").Code, 0);
    rs->MoveFirst();
    EXPECT_EQ(rs->RecordCount(), 0);
    EXPECT_TRUE(rs->Eof());
}

TEST_F(FilterLanguage, AGoodFilterAfterAnUnreadableOneShowsRowsAgain) {
    expectRefused("SumA >");
    EXPECT_EQ(ids("SumA > 100"), (Ids{1, 3}));
}

// --- The expression on its own --------------------------------------------------------

TEST(FilterExpressionAlone, ParsesOnceAndTestsRowsByFieldOrder) {
    const FieldDefs fields{FieldDef::Make("A", FieldType::VarWChar, 10),
                           FieldDef::Make("B", FieldType::Double)};
    ResultRecord r;
    const auto expr = FilterExpression::Parse("a like 'x*' and b >= 2", fields, &r);
    ASSERT_TRUE(expr);
    EXPECT_EQ(r.Code, 0);
    EXPECT_TRUE(expr->Matches(QVector<Value>{Value("xy"), Value(2.0)}));
    EXPECT_FALSE(expr->Matches(QVector<Value>{Value("xy"), Value(1.0)}));
    EXPECT_FALSE(expr->Matches(QVector<Value>{Value("yx"), Value(3.0)}));
    EXPECT_FALSE(expr->Matches(QVector<Value>{Value(), Value(3.0)}));
}

TEST(FilterExpressionAlone, EmptyTextMatchesEveryRow) {
    const auto expr = FilterExpression::Parse("  ", {FieldDef::Make("A", FieldType::Integer)});
    ASSERT_TRUE(expr);
    EXPECT_TRUE(expr->MatchesAll());
    EXPECT_TRUE(expr->Matches(QVector<Value>{Value()}));
}

TEST(FilterExpressionAlone, UnreadableTextGivesNoExpressionAndAnErrorCode) {
    ResultRecord r;
    EXPECT_FALSE(FilterExpression::Parse("A = ", {FieldDef::Make("A", FieldType::Integer)}, &r));
    EXPECT_EQ(r.Code, FilterExpression::ErrorCode);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("A =")));
}

TEST(FilterExpressionAlone, RefusesComparingANestedRecordsetField) {
    ResultRecord r;
    EXPECT_FALSE(FilterExpression::Parse("BR = 1", {FieldDef::Chapter("BR", {})}, &r));
    EXPECT_NE(r.Code, 0);
}

TEST(FilterExpressionAlone, LikePatterns) {
    EXPECT_TRUE(FilterExpression::Like("O0000100123", "O0000100*"));
    EXPECT_TRUE(FilterExpression::Like("abc", "%b%"));
    EXPECT_TRUE(FilterExpression::Like("abc", "a*c"));
    EXPECT_TRUE(FilterExpression::Like("ABC", "a*b*c"));
    EXPECT_FALSE(FilterExpression::Like("ac", "a*b*c"));
    EXPECT_FALSE(FilterExpression::Like("aba", "ab*ba"));
    EXPECT_TRUE(FilterExpression::Like("abba", "ab*ba"));
    EXPECT_TRUE(FilterExpression::Like("", "*"));
    EXPECT_TRUE(FilterExpression::Like("", ""));
    EXPECT_FALSE(FilterExpression::Like("x", ""));
    EXPECT_TRUE(FilterExpression::Like("Ąžuolas", "ą*"));
}

TEST_F(FilterLanguage, DateFieldWithATimeOfDayIsLaterThanItsDate) {
    rs->MoveFirst();
    ASSERT_TRUE(rs->SetField("DateD", QDateTime(QDate(2024, 3, 1), QTime(10, 0))));
    EXPECT_EQ(ids("DateD = '2024-03-01'"), Ids{});
    EXPECT_EQ(ids("DateD > '2024-03-01' And DateD < '2024-03-02'"), (Ids{1}));
    EXPECT_EQ(ids("DateD = '2024-03-01 10:00:00'"), (Ids{1}));
}

TEST_F(FilterLanguage, TextValueMayHoldKeywordsAndOperators) {
    rs->MoveFirst();
    ASSERT_TRUE(rs->SetField("Comment", "a And b OR (c) = 'd'"));
    EXPECT_EQ(ids("Comment = 'a And b OR (c) = ''d'''"), (Ids{1}));
}

TEST_F(FilterLanguage, BracketsLetAKeywordBeAFieldName) {
    RecordsetPtr odd = Recordset::Create({FieldDef::Make("Like", FieldType::Integer)});
    odd->AddNew();
    odd->SetField(0, 1);
    odd->AddNew();
    odd->SetField(0, 2);
    ASSERT_EQ(odd->SetFilter("[Like] = 2").Code, 0);
    EXPECT_EQ(odd->RecordCount(), 1);
    EXPECT_NE(odd->SetFilter("Like = 2").Code, 0);
    EXPECT_EQ(odd->RecordCount(), 0);
}

TEST_F(FilterLanguage, LithuanianFieldNamesAndTextsAreRead) {
    RecordsetPtr lt = Recordset::Create({FieldDef::Make("Pavadinimas", FieldType::VarWChar, 50),
                                         FieldDef::Make("Likutis", FieldType::Double)});
    lt->AddNew();
    lt->SetField(0, "Ūkininkų Ąžuolas");
    lt->SetField(1, 5.0);
    lt->AddNew();
    lt->SetField(0, "Kita");
    lt->SetField(1, 0.0);
    ASSERT_EQ(lt->SetFilter("pavadinimas like 'ūkininkų*' And LIKUTIS > 0").Code, 0);
    EXPECT_EQ(lt->RecordCount(), 1);
}

TEST_F(FilterLanguage, ErrorTextQuotesWhatWasFoundOnce) {
    const ResultRecord r = rs->SetFilter("SumA = 1 'x'");
    EXPECT_NE(r.Code, 0);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("nelauktas tekstas 'x'"))) << r.Text.toStdString();
    EXPECT_TRUE(r.Text.endsWith(QStringLiteral(": SumA = 1 'x'"))) << r.Text.toStdString();
}

TEST_F(FilterLanguage, EveryCutOfAFilterIsEitherReadOrRefusedWithNoRows) {
    const QString full =
        QStringLiteral("(AccountD like '2*' And SumA >= -20.5) OR Not (DateD = #2024-03-01#) "
                       "And [CurrCode] In ('EUR', 'usd') Or Comment Is Not Null");
    for (int n = 0; n <= full.size(); ++n) {
        const QString cut = full.left(n);
        SCOPED_TRACE(cut.toStdString());
        const ResultRecord r = rs->SetFilter(cut);
        if (r.Code == 0) {
            EXPECT_LE(rs->RecordCount(), 5);
        } else {
            EXPECT_FALSE(r.Text.isEmpty());
            EXPECT_EQ(rs->RecordCount(), 0);
            EXPECT_TRUE(rs->Eof());
        }
    }
    EXPECT_EQ(ids(full), (Ids{1, 2, 4, 5}));
}

TEST_F(FilterLanguage, PercentDigitsInAFilterDoNotUpsetTheErrorText) {
    const ResultRecord r = rs->SetFilter("SumA > 1 '%1%2'");
    EXPECT_NE(r.Code, 0);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("'%1%2'"))) << r.Text.toStdString();
    EXPECT_TRUE(r.Text.contains(QStringLiteral("pozicija 10"))) << r.Text.toStdString();
    EXPECT_EQ(rs->RecordCount(), 0);
}
