// Rows streamed to a reader (Database::QueryEach) on both backends: every column read in
// the kind the reader asks for, Null told apart, texts that repeat from row to row, that
// recur out of order and that differ only slightly read right, an early stop, and a
// failing statement.
#include "host/storage/money.h"
#include "storage_fixture.h"

namespace orvo::host {
namespace {

using testing::StorageTest;

class StorageRowCursorTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        db_ = Connect();
        ASSERT_TRUE(db_);
        const TableDef table{QStringLiteral("Lines"),
                             {IdColumn(), Column(QStringLiteral("Whole"), ColumnType::Integer),
                              Column(QStringLiteral("Fraction"), ColumnType::Double),
                              Column(QStringLiteral("Label"), ColumnType::Text),
                              Column(QStringLiteral("DateD"), ColumnType::Date),
                              Column(QStringLiteral("SumA"), ColumnType::Money)},
                             {},
                             {}};
        const ResultRecord r = db_->CreateTable(table);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    }

    void Insert(const ValueArray& values) {
        const ExecResult r = db_->Execute(
            QStringLiteral(
                "INSERT INTO Lines (Whole, Fraction, Label, DateD, SumA) VALUES (?, ?, ?, ?, ?)"),
            values);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    }

    // The labels as the cursor reads them, in the order of ID.
    QStringList Labels() {
        QStringList out;
        const ResultRecord r = db_->QueryEach(QStringLiteral("SELECT Label FROM Lines ORDER BY ID"),
                                              {}, [&out](const RowCursor& c) {
                                                  out << c.Text(0);
                                                  return true;
                                              });
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return out;
    }

    DatabasePtr db_;
};

TEST_P(StorageRowCursorTest, EveryColumnReadsInTheKindAsked) {
    const qint64 bigCents = 123456789012345;
    Insert({Value(42), Value(0.125), Value(QStringLiteral("Šiaulių „Ąžuolas“")),
            Value(QDate(2024, 2, 29)), Money::CentsValue(bigCents)});
    int rows = 0;
    const ResultRecord r =
        db_->QueryEach(QStringLiteral("SELECT Whole, Fraction, Label, DateD, SumA FROM Lines"), {},
                       [&](const RowCursor& c) {
                           ++rows;
                           EXPECT_EQ(c.ColumnCount(), 5);
                           EXPECT_EQ(c.Int64(0), 42);
                           EXPECT_EQ(c.Double(0), 42.0);
                           EXPECT_EQ(c.Text(0), QStringLiteral("42"));
                           EXPECT_EQ(c.Double(1), 0.125);
                           EXPECT_EQ(c.Text(2), QStringLiteral("Šiaulių „Ąžuolas“"));
                           EXPECT_EQ(c.Date(3), QDate(2024, 2, 29));
                           EXPECT_EQ(c.Text(3), QStringLiteral("2024-02-29"));
                           EXPECT_EQ(c.Int64(4), bigCents);
                           EXPECT_FALSE(c.IsNull(4));
                           return true;
                       });
    EXPECT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(rows, 1);
}

TEST_P(StorageRowCursorTest, NullReadsAsZeroEmptyAndNoDate) {
    Insert({Value(), Value(), Value(), Value(), Value()});
    const ResultRecord r =
        db_->QueryEach(QStringLiteral("SELECT Whole, Fraction, Label, DateD, SumA FROM Lines"), {},
                       [&](const RowCursor& c) {
                           for (int i = 0; i < 5; ++i)
                               EXPECT_TRUE(c.IsNull(i)) << i;
                           EXPECT_EQ(c.Int64(0), 0);
                           EXPECT_EQ(c.Double(1), 0.0);
                           EXPECT_TRUE(c.Text(2).isEmpty());
                           EXPECT_FALSE(c.Date(3).isValid());
                           // A column beyond the row reads as Null too.
                           EXPECT_TRUE(c.IsNull(5));
                           EXPECT_TRUE(c.Text(7).isEmpty());
                           return true;
                       });
    EXPECT_TRUE(r.ok()) << r.Text.toStdString();
}

TEST_P(StorageRowCursorTest, RepeatedAndNearlyEqualTextsReadRight) {
    // Equal lengths in bytes and in letters, a letter of two bytes where the row before
    // had one, and texts that differ only at their end.
    const QStringList labels{"2410", "2410", "241", "2410", "",     "2410", "2411",
                             "Ūkis", "Ukis", "Ūki", "Ukis", "Ūkis", "Ūkis!"};
    for (const QString& l : labels)
        Insert({Value(), Value(), Value(l), Value(), Value()});
    EXPECT_EQ(Labels(), labels);
}

TEST_P(StorageRowCursorTest, RecurringTextsReadRightAndAreMadeOnceEach) {
    // A customer's code met again after others, letters of two bytes, texts that differ
    // only at their end, an empty text, a Null and a number.
    const QStringList labels{"O00001001", "O00001002", "Ūkis",  "O00001001", "Ukis",
                             "Ūkis",      "",          "Ūkis!", "O00001002", "O00001001"};
    for (const QString& l : labels)
        Insert({Value(7), Value(), Value(l), Value(), Value()});
    Insert({Value(7), Value(), Value(), Value(), Value()});
    QStringList read;
    QStringList numbers;
    const ResultRecord r = db_->QueryEach(
        QStringLiteral("SELECT Label, Whole FROM Lines ORDER BY ID"), {}, [&](const RowCursor& c) {
            read << c.RecurringText(0);
            numbers << c.RecurringText(1);
            return true;
        });
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(read, labels + QStringList{QString()});
    EXPECT_EQ(numbers, QStringList(labels.size() + 1, QStringLiteral("7")));
    // The same text met again is the string made the first time, not a new one.
    EXPECT_EQ(read.at(0).constData(), read.at(3).constData());
    EXPECT_EQ(read.at(0).constData(), read.at(9).constData());
    EXPECT_EQ(read.at(2).constData(), read.at(5).constData());
    EXPECT_NE(read.at(2).constData(), read.at(4).constData());
}

TEST_P(StorageRowCursorTest, ParametersNarrowTheRows) {
    for (int i = 1; i <= 5; ++i)
        Insert({Value(i), Value(), Value(QStringLiteral("L%1").arg(i)), Value(), Value()});
    QList<qint64> seen;
    const ResultRecord r =
        db_->QueryEach(QStringLiteral("SELECT Whole FROM Lines WHERE Whole > ? ORDER BY Whole"),
                       {Value(3)}, [&seen](const RowCursor& c) {
                           seen << c.Int64(0);
                           return true;
                       });
    EXPECT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(seen, QList<qint64>({4, 5}));
}

TEST_P(StorageRowCursorTest, StoppingEarlyIsNoFailureAndTheStatementRunsAgain) {
    for (int i = 1; i <= 5; ++i)
        Insert({Value(i), Value(), Value(), Value(), Value()});
    int visits = 0;
    const QString sql = QStringLiteral("SELECT Whole FROM Lines ORDER BY Whole");
    const ResultRecord r =
        db_->QueryEach(sql, {}, [&visits](const RowCursor&) { return ++visits < 2; });
    EXPECT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(visits, 2);
    qint64 sum = 0;
    EXPECT_TRUE(db_->QueryEach(sql, {},
                               [&sum](const RowCursor& c) {
                                   sum += c.Int64(0);
                                   return true;
                               })
                    .ok());
    EXPECT_EQ(sum, 15);
}

TEST_P(StorageRowCursorTest, FailingStatementIsAResultAndVisitsNothing) {
    int visits = 0;
    const ResultRecord r = db_->QueryEach(QStringLiteral("SELECT Nothing FROM NoSuchTable"), {},
                                          [&visits](const RowCursor&) {
                                              ++visits;
                                              return true;
                                          });
    EXPECT_FALSE(r.ok());
    EXPECT_TRUE(r.Text.startsWith(QStringLiteral("Duomenų bazės klaida: ")))
        << r.Text.toStdString();
    EXPECT_EQ(visits, 0);
}

TEST_P(StorageRowCursorTest, WrongParameterCountIsRefused) {
    const ResultRecord r = db_->QueryEach(QStringLiteral("SELECT Whole FROM Lines WHERE Whole = ?"),
                                          {}, [](const RowCursor&) { return true; });
    EXPECT_FALSE(r.ok());
}

} // namespace

ORVO_STORAGE_BACKENDS(StorageRowCursorTest);

} // namespace orvo::host
