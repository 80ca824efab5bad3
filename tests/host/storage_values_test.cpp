// Values through storage on both backends: every kind a parameter may be comes back as
// the same kind and value, texts that look like SQL stay texts, and the statement
// contract (parameter counts, rows affected, column spelling) holds alike.
#include "storage_fixture.h"

#include <limits>

namespace orvo::host {
namespace {

using testing::StorageTest;

class StorageValuesTest : public StorageTest {
protected:
    void SetUp() override {
        StorageTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        db_ = Connect();
        ASSERT_TRUE(db_);
        table_ = {QStringLiteral("Samples"),
                  {IdColumn(), Column(QStringLiteral("Whole"), ColumnType::Integer),
                   Column(QStringLiteral("Fraction"), ColumnType::Double),
                   Column(QStringLiteral("Label"), ColumnType::Text),
                   Column(QStringLiteral("DateD"), ColumnType::Date),
                   Column(QStringLiteral("Stamp"), ColumnType::DateTime),
                   Column(QStringLiteral("SumA"), ColumnType::Money)},
                  {},
                  {}};
        ResultRecord r = db_->CreateTable(table_);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    }

    // Inserts one row and reads it back as the database gives it.
    ValueArray RoundTrip(const ValueArray& values) {
        QueryResult inserted =
            db_->Query(QStringLiteral("INSERT INTO Samples (Whole, Fraction, Label, DateD, Stamp) "
                                      "VALUES (?, ?, ?, ?, ?) RETURNING ID"),
                       values);
        EXPECT_TRUE(inserted.ok()) << inserted.Text.toStdString();
        QueryResult row = db_->Query(
            QStringLiteral("SELECT Whole, Fraction, Label, DateD, Stamp FROM Samples WHERE ID = ?"),
            {inserted.Scalar()});
        EXPECT_TRUE(row.ok()) << row.Text.toStdString();
        EXPECT_EQ(row.RowCount(), 1);
        return row.RowCount() == 1 ? row.Rows[0] : ValueArray();
    }

    DatabasePtr db_;
    TableDef table_;
};

TEST_P(StorageValuesTest, NullOfEveryColumnKindComesBackNull) {
    const ValueArray back = RoundTrip({Value(), Value(), Value(), Value(), Value()});
    ASSERT_EQ(back.size(), 5);
    for (const Value& v : back)
        EXPECT_TRUE(v.isNull()) << Value::KindName(v.kind()).toStdString();
}

TEST_P(StorageValuesTest, WholeNumbersComeBackExactAsInt32) {
    for (qint32 n :
         {0, 1, -1, 17, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()}) {
        const ValueArray back = RoundTrip({Value(n), Value(), Value(), Value(), Value()});
        ASSERT_EQ(back.size(), 5);
        EXPECT_EQ(back[0].kind(), Value::Kind::Int32);
        EXPECT_EQ(back[0].toInt32(), n);
    }
}

TEST_P(StorageValuesTest, WholeNumberBeyond32BitsComesBackAsExactDouble) {
    const double big = 1099511627776.0 + 7; // 2^40 + 7
    const ValueArray back = RoundTrip({Value(big), Value(), Value(), Value(), Value()});
    ASSERT_EQ(back.size(), 5);
    EXPECT_EQ(back[0].kind(), Value::Kind::Double);
    EXPECT_EQ(back[0].toDouble(), big);
}

TEST_P(StorageValuesTest, DoublesComeBackBitForBit) {
    for (double d : {1.0 / 3.0, -2.5, 1e300, 4.9e-324, 123456.789, 0.1 + 0.2, 0.0}) {
        const ValueArray back = RoundTrip({Value(), Value(d), Value(), Value(), Value()});
        ASSERT_EQ(back.size(), 5);
        EXPECT_EQ(back[1].kind(), Value::Kind::Double);
        EXPECT_EQ(back[1].toDouble(), d);
    }
}

TEST_P(StorageValuesTest, TextWithLithuanianLettersAndQuotesComesBackUnchanged) {
    const QString text =
        QStringLiteral("Ąžuolų g. 5, „Šilas“ 'vienguba' \"dviguba\" ĘėĮįŲūČčŠšŽž ?");
    const ValueArray back = RoundTrip({Value(), Value(), Value(text), Value(), Value()});
    ASSERT_EQ(back.size(), 5);
    EXPECT_EQ(back[2].kind(), Value::Kind::Text);
    EXPECT_EQ(back[2].toString(), text);
}

TEST_P(StorageValuesTest, EmptyTextStaysEmptyAndIsNotNull) {
    const ValueArray back = RoundTrip({Value(), Value(), Value(QString("")), Value(), Value()});
    ASSERT_EQ(back.size(), 5);
    EXPECT_EQ(back[2].kind(), Value::Kind::Text);
    EXPECT_EQ(back[2].toString(), QString());
}

TEST_P(StorageValuesTest, DatesComeBackAsDates) {
    for (const QDate& d :
         {QDate(2024, 3, 15), QDate(1990, 1, 1), QDate(9999, 12, 31), QDate(2024, 2, 29)}) {
        const ValueArray back = RoundTrip({Value(), Value(), Value(), Value(d), Value()});
        ASSERT_EQ(back.size(), 5);
        EXPECT_EQ(back[3].kind(), Value::Kind::Date);
        EXPECT_EQ(back[3].toDate(), d);
    }
}

TEST_P(StorageValuesTest, DateTimesComeBackToTheSecond) {
    const QDateTime when(QDate(2024, 3, 15), QTime(13, 45, 7));
    const ValueArray back = RoundTrip({Value(), Value(), Value(), Value(), Value(when)});
    ASSERT_EQ(back.size(), 5);
    EXPECT_EQ(back[4].kind(), Value::Kind::DateTime);
    EXPECT_EQ(back[4].toDateTime(), when);
}

TEST_P(StorageValuesTest, BooleanParameterIsStoredAsOneOrZero) {
    const ValueArray yes = RoundTrip({Value(true), Value(), Value(), Value(), Value()});
    const ValueArray no = RoundTrip({Value(false), Value(), Value(), Value(), Value()});
    ASSERT_EQ(yes.size(), 5);
    ASSERT_EQ(no.size(), 5);
    EXPECT_EQ(yes[0].toInt32(), 1);
    EXPECT_EQ(no[0].toInt32(), 0);
}

TEST_P(StorageValuesTest, ImpossibleDateTextIsRefused) {
    // SQLite keeps dates as text, yet refuses what PostgreSQL's DATE refuses.
    ExecResult r = db_->Execute(QStringLiteral("INSERT INTO Samples (DateD) VALUES (?)"),
                                {Value(QStringLiteral("2023-02-30"))});
    EXPECT_FALSE(r.ok());
    EXPECT_TRUE(r.Text.startsWith(QStringLiteral("Duomenų bazės klaida: ")))
        << r.Text.toStdString();
    EXPECT_EQ(db_->Query(QStringLiteral("SELECT count(*) FROM Samples")).Scalar().toInt32(), 0);
}

TEST_P(StorageValuesTest, ComputedDateColumnIsReadAsDateWhenNamed) {
    ASSERT_TRUE(db_->Execute(QStringLiteral("INSERT INTO Samples (DateD) VALUES (?), (?)"),
                             {Value(QDate(2024, 1, 5)), Value(QDate(2024, 6, 30))})
                    .ok());
    QueryResult r = db_->Query(QStringLiteral("SELECT MAX(DateD) AS LastDate FROM Samples"), {},
                               {QStringLiteral("LastDate")});
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.Scalar().kind(), Value::Kind::Date);
    EXPECT_EQ(r.Scalar().toDate(), QDate(2024, 6, 30));
}

TEST_P(StorageValuesTest, SqlTextInAParameterIsStoredAsText) {
    const QString hostile = QStringLiteral("'; DROP TABLE Samples; --");
    const ValueArray back = RoundTrip({Value(), Value(), Value(hostile), Value(), Value()});
    ASSERT_EQ(back.size(), 5);
    EXPECT_EQ(back[2].toString(), hostile);
    QueryResult found = db_->Query(QStringLiteral("SELECT count(*) FROM Samples WHERE Label = ?"),
                                   {Value(hostile)});
    ASSERT_TRUE(found.ok()) << found.Text.toStdString();
    EXPECT_EQ(found.Scalar().toInt32(), 1);
}

TEST_P(StorageValuesTest, QuestionMarkInsideQuotesIsNotAParameter) {
    QueryResult r = db_->Query(QStringLiteral("SELECT 'kas?' AS Quoted, ? AS Given -- ar? \n"),
                               {Value(QStringLiteral("taip"))});
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.At(0, QStringLiteral("Quoted")).toString(), QStringLiteral("kas?"));
    EXPECT_EQ(r.At(0, QStringLiteral("Given")).toString(), QStringLiteral("taip"));
}

TEST_P(StorageValuesTest, WrongNumberOfParametersIsRefused) {
    ExecResult r = db_->Execute(QStringLiteral("INSERT INTO Samples (Whole, Label) VALUES (?, ?)"),
                                {Value(qint32(1))});
    EXPECT_FALSE(r.ok());
    EXPECT_NE(r.Text.indexOf(QStringLiteral("Sakiniui reikia 2 parametrų, pateikta 1")), -1)
        << r.Text.toStdString();
    EXPECT_EQ(db_->Query(QStringLiteral("SELECT count(*) FROM Samples")).Scalar().toInt32(), 0);
}

TEST_P(StorageValuesTest, ArrayParameterIsRefused) {
    ExecResult r = db_->Execute(QStringLiteral("INSERT INTO Samples (Label) VALUES (?)"),
                                {Value(ValueArray{Value(qint32(1))})});
    EXPECT_FALSE(r.ok());
    EXPECT_NE(r.Text.indexOf(QStringLiteral("negali būti įrašyta")), -1) << r.Text.toStdString();
}

TEST_P(StorageValuesTest, ConditionalUpdateReportsTheRowsItChanged) {
    // What an optimistic lock rests on: a token that no longer matches changes no row.
    QueryResult inserted = db_->Query(
        QStringLiteral("INSERT INTO Samples (Label) VALUES (?) RETURNING ID"), {Value("A")});
    ASSERT_TRUE(inserted.ok()) << inserted.Text.toStdString();
    const Value id = inserted.Scalar();
    ExecResult matched =
        db_->Execute(QStringLiteral("UPDATE Samples SET Label = ? WHERE ID = ? AND Label = ?"),
                     {Value("B"), id, Value("A")});
    ASSERT_TRUE(matched.ok()) << matched.Text.toStdString();
    EXPECT_EQ(matched.RowsAffected, 1);
    ExecResult stale =
        db_->Execute(QStringLiteral("UPDATE Samples SET Label = ? WHERE ID = ? AND Label = ?"),
                     {Value("C"), id, Value("A")});
    ASSERT_TRUE(stale.ok()) << stale.Text.toStdString();
    EXPECT_EQ(stale.RowsAffected, 0);
}

TEST_P(StorageValuesTest, ColumnNamesComeBackInTheSchemaSpelling) {
    QueryResult r = db_->Query(QStringLiteral("SELECT whole, DATED, sUmA FROM samples"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(r.Columns, (QStringList{QStringLiteral("Whole"), QStringLiteral("DateD"),
                                      QStringLiteral("SumA")}));
}

TEST_P(StorageValuesTest, ReportsItsBackend) {
    EXPECT_EQ(db_->Kind(), GetParam());
    EXPECT_EQ(db_->BackendName(),
              IsPostgres() ? QStringLiteral("PostgreSQL") : QStringLiteral("SQLite"));
}

ORVO_STORAGE_BACKENDS(StorageValuesTest);

} // namespace
} // namespace orvo::host
