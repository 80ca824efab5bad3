#include "core/null_readers.h"

#include <gtest/gtest.h>

using namespace orvo;

TEST(NullReaders, NzLongOfNullIsZero) {
    EXPECT_EQ(NzLong(Value::Null()), 0);
}

TEST(NullReaders, NzLongReadsNumbersAndNumericText) {
    EXPECT_EQ(NzLong(Value(qint32(123456789))), 123456789);
    EXPECT_EQ(NzLong(Value(qint16(-7))), -7);
    EXPECT_EQ(NzLong(Value(12.5)), 12); // half to even
    EXPECT_EQ(NzLong(Value(13.5)), 14);
    EXPECT_EQ(NzLong(Value("42")), 42);
    EXPECT_EQ(NzLong(Value(true)), -1);
}

TEST(NullReaders, NzLongOfUnreadableValueIsZero) {
    EXPECT_EQ(NzLong(Value("abc")), 0);
    EXPECT_EQ(NzLong(Value(1e12)), 0);
    EXPECT_EQ(NzLong(Value(QDate(2024, 3, 15))), 0);
}

TEST(NullReaders, NzIntIsSixteenBit) {
    EXPECT_EQ(NzInt(Value::Null()), 0);
    EXPECT_EQ(NzInt(Value(qint32(-32768))), -32768);
    EXPECT_EQ(NzInt(Value(qint32(32767))), 32767);
    EXPECT_EQ(NzInt(Value(qint32(40000))), 0);
    EXPECT_EQ(NzInt(Value("3")), 3);
}

TEST(NullReaders, NzDoubleOfNullIsZero) {
    EXPECT_EQ(NzDouble(Value::Null()), 0.0);
    EXPECT_EQ(NzDouble(Value(12.34)), 12.34);
    EXPECT_EQ(NzDouble(Value(qint32(5))), 5.0);
    EXPECT_EQ(NzDouble(Value("1 234,5")), 1234.5);
    EXPECT_EQ(NzDouble(Value("x")), 0.0);
}

TEST(NullReaders, NzStringOfNullIsEmpty) {
    EXPECT_EQ(NzString(Value::Null()), QString());
    EXPECT_EQ(NzString(Value(QString::fromUtf8("Pirkėjų skolos"))),
              QString::fromUtf8("Pirkėjų skolos"));
    EXPECT_EQ(NzString(Value(qint32(2410))), QStringLiteral("2410"));
    EXPECT_EQ(NzString(Value(QDate(2024, 3, 15))), QStringLiteral("2024-03-15"));
}

TEST(NullReaders, NzDateOfNullIsTheDefault) {
    const QDate fallback(1990, 1, 1);
    EXPECT_EQ(NzDate(Value::Null(), fallback), fallback);
    EXPECT_EQ(NzDate(Value(QDate(2024, 3, 15)), fallback), QDate(2024, 3, 15));
    EXPECT_EQ(NzDate(Value(QDateTime(QDate(2024, 3, 15), QTime(13, 5))), fallback),
              QDate(2024, 3, 15));
    EXPECT_EQ(NzDate(Value("2024.03.01"), fallback), QDate(2024, 3, 1));
}

TEST(NullReaders, NzDateOfValueThatIsNoDateIsTheDefault) {
    const QDate fallback(1990, 1, 1);
    EXPECT_EQ(NzDate(Value("rytoj"), fallback), fallback);
    EXPECT_EQ(NzDate(Value(qint32(5)), fallback), fallback);
}
