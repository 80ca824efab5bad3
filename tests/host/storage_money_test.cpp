// Money in storage: amounts become exact hundredths and come back as the same doubles,
// and sums over many rows are exact on both backends.
#include "storage_fixture.h"

#include "host/storage/money.h"

#include <cmath>
#include <limits>

namespace orvo::host {
namespace {

using testing::StorageTest;

TEST(StorageMoney, ToCentsTakesTwoPlaceAmountsExactly) {
    EXPECT_EQ(Money::ToCents(0.29), 29);
    EXPECT_EQ(Money::ToCents(1234567.89), 123456789);
    EXPECT_EQ(Money::ToCents(-0.01), -1);
    EXPECT_EQ(Money::ToCents(0.1 + 0.2), 30);
    EXPECT_EQ(Money::ToCents(0.0), 0);
    EXPECT_EQ(Money::ToCents(-0.0), 0);
    EXPECT_EQ(Money::ToCents(19.99 * 3), 5997);
    EXPECT_EQ(Money::ToCents(99999999999.99), 9999999999999);
}

TEST(StorageMoney, ToCentsTakesAnAmountWithinAMillionthAsTheTwoPlaceValue) {
    EXPECT_EQ(Money::ToCents(0.29 + 9e-7), 29);
    EXPECT_EQ(Money::ToCents(0.29 - 9e-7), 29);
    EXPECT_EQ(Money::ToCents(-1234.56 - 9e-7), -123456);
    EXPECT_EQ(Money::ToCents(1234.56 + 9e-7), 123456);
}

TEST(StorageMoney, ToCentsRoundsARealThirdDecimalHalfAwayFromZero) {
    // 0.285, 2.675 and 1.005 are a little below the decimal as doubles; the decimal counts.
    EXPECT_EQ(Money::ToCents(0.285), 29);
    EXPECT_EQ(Money::ToCents(-0.285), -29);
    EXPECT_EQ(Money::ToCents(2.675), 268);
    EXPECT_EQ(Money::ToCents(1.005), 101);
    EXPECT_EQ(Money::ToCents(0.2849), 28);
    EXPECT_EQ(Money::ToCents(-0.2849), -28);
    EXPECT_EQ(Money::ToCents(0.004), 0);
    EXPECT_EQ(Money::ToCents(0.005), 1);
    EXPECT_EQ(Money::ToCents(-0.005), -1);
}

TEST(StorageMoney, ToCentsRefusesWhatIsNoAmount) {
    bool ok = true;
    EXPECT_EQ(Money::ToCents(std::numeric_limits<double>::quiet_NaN(), &ok), 0);
    EXPECT_FALSE(ok);
    ok = true;
    Money::ToCents(std::numeric_limits<double>::infinity(), &ok);
    EXPECT_FALSE(ok);
    ok = true;
    Money::ToCents(1e300, &ok);
    EXPECT_FALSE(ok);
    ok = false;
    EXPECT_EQ(Money::ToCents(1e-300, &ok), 0);
    EXPECT_TRUE(ok);
}

TEST(StorageMoney, FromCentsGivesTheSameDoubleAsTheDecimal) {
    EXPECT_EQ(Money::FromCents(29), 0.29);
    EXPECT_EQ(Money::FromCents(123456789), 1234567.89);
    EXPECT_EQ(Money::FromCents(-1), -0.01);
    EXPECT_EQ(Money::FromCents(1000000), 10000.0);
    for (qint64 cents = -100000; cents <= 100000; cents += 7)
        EXPECT_EQ(Money::ToCents(Money::FromCents(cents)), cents);
}

TEST(StorageMoney, CentsTravelAsInt32OrAsExactDouble) {
    EXPECT_EQ(Money::CentsValue(29).kind(), Value::Kind::Int32);
    const qint64 big = 600000000000LL;
    EXPECT_EQ(Money::CentsValue(big).kind(), Value::Kind::Double);
    EXPECT_EQ(Money::CentsFromValue(Money::CentsValue(big)), big);
    EXPECT_EQ(Money::AmountFromValue(Value(qint32(-150))).toDouble(), -1.5);
    EXPECT_TRUE(Money::AmountFromValue(Value()).isNull());
    bool ok = true;
    Money::CentsFromValue(Value(QStringLiteral("12")), &ok);
    EXPECT_FALSE(ok);
}

class StorageMoneyTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        db_ = Connect();
        ASSERT_TRUE(db_);
        ResultRecord r =
            db_->CreateTable({QStringLiteral("Amounts"),
                              {IdColumn(), Column(QStringLiteral("SumA"), ColumnType::Money, true)},
                              {},
                              {}});
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    }

    DatabasePtr db_;
};

TEST_P(StorageMoneyTest, AmountsComeBackExactToTheCent) {
    for (double amount : {0.29, 1234567.89, -0.01, 0.1, 19.99, 99999999999.99, 0.0}) {
        ASSERT_TRUE(db_->Execute(QStringLiteral("DELETE FROM Amounts")).ok());
        ExecResult w = db_->Execute(QStringLiteral("INSERT INTO Amounts (SumA) VALUES (?)"),
                                    {Money::CentsValue(Money::ToCents(amount))});
        ASSERT_TRUE(w.ok()) << w.Text.toStdString();
        QueryResult r = db_->Query(QStringLiteral("SELECT SumA FROM Amounts"));
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        EXPECT_EQ(Money::AmountFromValue(r.Scalar()).toDouble(), amount);
    }
}

TEST_P(StorageMoneyTest, SumOfHundredThousandRowsOfTenCentsIsExactlyTenThousand) {
    QVector<ValueArray> rows(100000, ValueArray{Money::CentsValue(Money::ToCents(0.1))});
    ExecResult w = db_->ExecuteMany(QStringLiteral("INSERT INTO Amounts (SumA) VALUES (?)"), rows);
    ASSERT_TRUE(w.ok()) << w.Text.toStdString();
    EXPECT_EQ(w.RowsAffected, 100000);
    QueryResult r = db_->Query(QStringLiteral("SELECT SUM(SumA) AS Total FROM Amounts"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Money::CentsFromValue(r.Scalar()), 1000000);
    EXPECT_EQ(Money::AmountFromValue(r.Scalar()).toDouble(), 10000.0);
}

TEST_P(StorageMoneyTest, SumBeyond32BitsOfCentsIsExact) {
    // Three times twenty million and one cent: more hundredths than 32 bits hold.
    const qint64 cents = Money::ToCents(20000000.01);
    QVector<ValueArray> rows(3, ValueArray{Money::CentsValue(cents)});
    ASSERT_TRUE(
        db_->ExecuteMany(QStringLiteral("INSERT INTO Amounts (SumA) VALUES (?)"), rows).ok());
    QueryResult r = db_->Query(QStringLiteral("SELECT SUM(SumA) FROM Amounts"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Money::CentsFromValue(r.Scalar()), 6000000003LL);
    EXPECT_EQ(Money::AmountFromValue(r.Scalar()).toDouble(), 60000000.03);
}

TEST_P(StorageMoneyTest, FractionOfACentIsRefusedByTheMoneyColumn) {
    // Hundredths are whole numbers: a fraction means a caller skipped ToCents.
    ExecResult w = db_->Execute(QStringLiteral("INSERT INTO Amounts (SumA) VALUES (?)"),
                                {Value(QStringLiteral("12.5"))});
    EXPECT_FALSE(w.ok());
    EXPECT_EQ(db_->Query(QStringLiteral("SELECT count(*) FROM Amounts")).Scalar().toInt32(), 0);
}

ORVO_STORAGE_BACKENDS(StorageMoneyTest);

} // namespace
} // namespace orvo::host
