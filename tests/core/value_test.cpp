// Value: the real Null, the tolerant conversions stored data needs, and the rules of
// ordering and equality that filters and sorts rely on.
#include "core/dictionary.h"
#include "core/recordset.h"
#include "core/value.h"

#include <gtest/gtest.h>

using namespace orvo;

TEST(ValueNull, DefaultValueIsNull) {
    const Value v;
    EXPECT_TRUE(v.isNull());
    EXPECT_EQ(v.kind(), Value::Kind::Null);
    EXPECT_TRUE(Value::Null().isNull());
}

TEST(ValueNull, NullReadsAsNothing) {
    const Value v;
    bool ok = true;
    EXPECT_EQ(v.toDouble(&ok), 0.0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(v.toString(), QString());
    EXPECT_FALSE(v.toDate(&ok).isValid());
    EXPECT_FALSE(ok);
}

TEST(ValueNull, InvalidDatesAndEmptyReferencesBecomeNull) {
    EXPECT_TRUE(Value(QDate()).isNull());
    EXPECT_TRUE(Value(QDateTime()).isNull());
    EXPECT_TRUE(Value(RecordsetPtr()).isNull());
    EXPECT_TRUE(Value(DictionaryPtr()).isNull());
}

TEST(ValueNull, EmptyTextIsNotNull) {
    EXPECT_FALSE(Value("").isNull());
    EXPECT_NE(Value(""), Value());
}

TEST(ValueNumbers, TextWithCommaOrDotReadsAsANumber) {
    bool ok = false;
    EXPECT_DOUBLE_EQ(Value("12,5").toDouble(&ok), 12.5);
    EXPECT_TRUE(ok);
    EXPECT_DOUBLE_EQ(Value("12.5").toDouble(&ok), 12.5);
    EXPECT_TRUE(ok);
    EXPECT_DOUBLE_EQ(Value(" -3,25 ").toDouble(&ok), -3.25);
    EXPECT_TRUE(ok);
}

TEST(ValueNumbers, BlanksInsideANumberAreIgnored) {
    bool ok = false;
    EXPECT_DOUBLE_EQ(Value("1 234,56").toDouble(&ok), 1234.56);
    EXPECT_TRUE(ok);
}

TEST(ValueNumbers, TextThatIsNoNumberSaysSo) {
    bool ok = true;
    EXPECT_EQ(Value("abc").toDouble(&ok), 0.0);
    EXPECT_FALSE(ok);
    ok = true;
    Value("").toDouble(&ok);
    EXPECT_FALSE(ok);
}

TEST(ValueNumbers, BooleanReadsAsMinusOneOrZero) {
    EXPECT_EQ(Value(true).toDouble(), -1.0);
    EXPECT_EQ(Value(false).toDouble(), 0.0);
    EXPECT_EQ(Value(true).toInt32(), -1);
}

TEST(ValueNumbers, Int16ChecksItsRange) {
    bool ok = true;
    Value(40000).toInt16(&ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(Value(-32768).toInt16(&ok), -32768);
    EXPECT_TRUE(ok);
}

TEST(ValueNumbers, FractionsRoundHalfToEvenIntoIntegers) {
    EXPECT_EQ(Value(2.5).toInt32(), 2);
    EXPECT_EQ(Value(3.5).toInt32(), 4);
    EXPECT_EQ(Value("12,5").toInt32(), 12);
}

TEST(ValueNumbers, DateIsNoInteger) {
    bool ok = true;
    Value(QDate(2024, 1, 1)).toInt32(&ok);
    EXPECT_FALSE(ok);
}

TEST(ValueNumbers, TextOfADoubleUsesADot) {
    EXPECT_EQ(Value(12.5).toString(), QStringLiteral("12.5"));
    EXPECT_EQ(Value(qint32(7)).toString(), QStringLiteral("7"));
}

TEST(ValueBooleans, WordsAndNumbersReadAsBooleans) {
    bool ok = false;
    EXPECT_TRUE(Value("True").toBool(&ok));
    EXPECT_TRUE(ok);
    EXPECT_FALSE(Value("false").toBool(&ok));
    EXPECT_TRUE(ok);
    EXPECT_TRUE(Value(-1).toBool());
    EXPECT_FALSE(Value(0.0).toBool());
    Value("maybe").toBool(&ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(Value(true).toString(), QStringLiteral("True"));
}

TEST(ValueDates, DottedDateTextReadsAsADate) {
    bool ok = false;
    EXPECT_EQ(Value("2024.03.01").toDate(&ok), QDate(2024, 3, 1));
    EXPECT_TRUE(ok);
}

TEST(ValueDates, DashedAndSlashedDateTextsReadAsDates) {
    EXPECT_EQ(Value("2024-03-01").toDate(), QDate(2024, 3, 1));
    EXPECT_EQ(Value("2024/03/01").toDate(), QDate(2024, 3, 1));
    EXPECT_EQ(Value("2024-03-01T10:00:00").toDate(), QDate(2024, 3, 1));
}

TEST(ValueDates, ImpossibleDateTextIsRefused) {
    bool ok = true;
    EXPECT_FALSE(Value("2024.02.30").toDate(&ok).isValid());
    EXPECT_FALSE(ok);
    Value("01.03.2024x").toDate(&ok);
    EXPECT_FALSE(ok);
}

TEST(ValueDates, DateTimeTextKeepsItsTime) {
    bool ok = false;
    EXPECT_EQ(Value("2024.03.01 08:15:00").toDateTime(&ok),
              QDateTime(QDate(2024, 3, 1), QTime(8, 15)));
    EXPECT_TRUE(ok);
}

TEST(ValueDates, DateTextIsWrittenWithDashes) {
    EXPECT_EQ(Value(QDate(2024, 3, 1)).toString(), QStringLiteral("2024-03-01"));
}

TEST(ValueDates, DateAsANumberIsTheSerialDay) {
    EXPECT_EQ(Value(QDate(1899, 12, 31)).toDouble(), 1.0);
    EXPECT_EQ(Value(QDate(2024, 1, 1)).toDouble(), 45292.0);
}

TEST(ValueCompare, NullSortsFirst) {
    EXPECT_LT(Value().compare(Value(-1e9)), 0);
    EXPECT_GT(Value("a").compare(Value()), 0);
    EXPECT_EQ(Value().compare(Value()), 0);
}

TEST(ValueCompare, NumbersCompareByValueAcrossKinds) {
    EXPECT_EQ(Value(qint16(2)).compare(Value(2.0)), 0);
    EXPECT_LT(Value(qint32(2)).compare(Value(2.5)), 0);
    EXPECT_GT(Value(10).compare(Value("9")), 0);
}

TEST(ValueCompare, TextsCompareWithoutRegardToCase) {
    EXPECT_EQ(Value("eur").compare(Value("EUR")), 0);
    EXPECT_LT(Value("abc").compare(Value("ABD")), 0);
}

TEST(ValueCompare, DatesCompareByTime) {
    EXPECT_LT(Value(QDate(2024, 1, 1)).compare(Value(QDate(2024, 1, 2))), 0);
    EXPECT_LT(Value(QDate(2024, 1, 1)).compare(Value(QDateTime(QDate(2024, 1, 1), QTime(1, 0)))),
              0);
    EXPECT_EQ(Value(QDate(2024, 1, 1)).compare(Value("2024.01.01")), 0);
}

TEST(ValueCompare, KindsThatDoNotCompareSaySo) {
    bool comparable = true;
    EXPECT_EQ(Value("abc").compare(Value(1), &comparable), 0);
    EXPECT_FALSE(comparable);
    comparable = true;
    Value(QDate(2024, 1, 1)).compare(Value("not a date"), &comparable);
    EXPECT_FALSE(comparable);
}

TEST(ValueEquality, NumbersEqualAcrossKinds) {
    EXPECT_EQ(Value(1), Value(1.0));
    EXPECT_EQ(Value(qint16(1)), Value(qint32(1)));
    EXPECT_NE(Value(1), Value(1.5));
}

TEST(ValueEquality, TextEqualityIsExact) {
    EXPECT_EQ(Value("a"), Value("a"));
    EXPECT_NE(Value("a"), Value("A"));
    EXPECT_NE(Value("1"), Value(1));
}

TEST(ValueEquality, NullEqualsOnlyNull) {
    EXPECT_EQ(Value(), Value());
    EXPECT_NE(Value(), Value(0));
    EXPECT_NE(Value(0), Value());
}

TEST(ValueEquality, DateEqualsMidnightOfTheSameDay) {
    EXPECT_EQ(Value(QDate(2024, 3, 1)), Value(QDateTime(QDate(2024, 3, 1), QTime(0, 0))));
    EXPECT_NE(Value(QDate(2024, 3, 1)), Value(QDate(2024, 3, 2)));
}

TEST(ValueEquality, ArraysCompareElementByElement) {
    EXPECT_EQ(Value(ValueArray{Value(1), Value("a")}), Value(ValueArray{Value(1.0), Value("a")}));
    EXPECT_NE(Value(ValueArray{Value(1)}), Value(ValueArray{Value(2)}));
}

TEST(ValueEquality, ReferencesEqualWhenTheyShareTheSameObject) {
    RecordsetPtr a = Recordset::Create();
    RecordsetPtr b = Recordset::Create();
    EXPECT_EQ(Value(a), Value(a));
    EXPECT_NE(Value(a), Value(b));
}

TEST(ValueReferences, RecordsetAndDictionaryTravelShared) {
    RecordsetPtr rs = Recordset::Create({FieldDef::Make("X", FieldType::Integer)});
    const Value v(rs);
    EXPECT_EQ(v.kind(), Value::Kind::Recordset);
    EXPECT_EQ(v.toRecordset(), rs);
    EXPECT_FALSE(v.toDictionary());
    DictionaryPtr d = Dictionary::Create();
    EXPECT_EQ(Value(d).toDictionary(), d);
    EXPECT_TRUE(Value(5).toArray().isEmpty());
}

TEST(ValueKinds, KindNamesAreReadable) {
    EXPECT_EQ(Value::KindName(Value::Kind::Null), QStringLiteral("null"));
    EXPECT_EQ(Value::KindName(Value::Kind::Double), QStringLiteral("double"));
    EXPECT_EQ(Value::KindName(Value::Kind::Recordset), QStringLiteral("recordset"));
}
