// Rows appended as storage holds them (Recordset::AppendStored), the way a long list read
// from the book is filled: they read as unchanged, take the same coercions as an edit,
// refuse a row that does not fit whole, and leave the current row where it stood.
#include "core/recordset.h"

#include <gtest/gtest.h>

#include <limits>

using namespace orvo;

namespace {

FieldDefs DebtFields() {
    return {FieldDef::Make("OIDR", FieldType::VarWChar, 20),
            FieldDef::Make("DateD", FieldType::Date),
            FieldDef::Make("LikutisLt", FieldType::Double),
            FieldDef::Make("InfluenceSign", FieldType::SmallInt)};
}

ValueArray Debt(const QString& oidr, double rest) {
    return {oidr, Value(QDate(2024, 1, 10)), rest, Value(qint16(1))};
}

} // namespace

TEST(RecordsetAppendStored, StoredRowReadsAsGivenAndIsUnchanged) {
    Recordset rs(DebtFields());
    ASSERT_TRUE(rs.AppendStored(Debt("O020150017", 600.0)));
    EXPECT_EQ(rs.RowCountAll(), 1);
    EXPECT_EQ(rs.StatusAt(0), RowStatus::Unchanged);
    rs.MoveFirst();
    EXPECT_EQ(rs.Field("OIDR").toString(), "O020150017");
    EXPECT_EQ(rs.Field("DateD").toDate(), QDate(2024, 1, 10));
    EXPECT_DOUBLE_EQ(rs.Field("LikutisLt").toDouble(), 600.0);
    EXPECT_EQ(rs.Field("InfluenceSign").kind(), Value::Kind::Int16);
}

TEST(RecordsetAppendStored, CancelBatchKeepsStoredRowsSinceNothingChanged) {
    Recordset rs(DebtFields());
    ASSERT_TRUE(rs.AppendStored(Debt("A", 1.0)));
    rs.AddNew();
    rs.SetField("OIDR", "B");
    rs.CancelBatch();
    EXPECT_EQ(rs.RowCountAll(), 1);
    EXPECT_EQ(rs.ValueAt(0, 0).toString(), "A");
}

TEST(RecordsetAppendStored, ValuesAreCoercedAsAnEditWouldBe) {
    Recordset rs(DebtFields());
    ASSERT_TRUE(rs.AppendStored({"A", "2024-02-29", "12,5", 1}));
    rs.MoveFirst();
    EXPECT_EQ(rs.Field("DateD").toDate(), QDate(2024, 2, 29));
    EXPECT_DOUBLE_EQ(rs.Field("LikutisLt").toDouble(), 12.5);
    EXPECT_EQ(rs.Field("InfluenceSign").kind(), Value::Kind::Int16);
}

TEST(RecordsetAppendStored, RowOfTheWrongLengthIsRefused) {
    Recordset rs(DebtFields());
    EXPECT_FALSE(rs.AppendStored({"A", Value(QDate(2024, 1, 10)), 1.0}));
    EXPECT_EQ(rs.RowCountAll(), 0);
}

TEST(RecordsetAppendStored, AValueThatDoesNotFitRefusesTheWholeRow) {
    Recordset rs(DebtFields());
    EXPECT_FALSE(rs.AppendStored({"A", Value(QDate(2024, 1, 10)), "daug", 1}));
    EXPECT_FALSE(rs.AppendStored(Debt(QString(21, QLatin1Char('x')), 1.0)));
    EXPECT_EQ(rs.RowCountAll(), 0);
    EXPECT_EQ(rs.RecordCount(), 0);
}

TEST(RecordsetAppendStored, TheCurrentRowStaysWhereItStood) {
    Recordset rs(DebtFields());
    ASSERT_TRUE(rs.AppendStored(Debt("A", 1.0)));
    ASSERT_TRUE(rs.AppendStored(Debt("B", 2.0)));
    EXPECT_TRUE(rs.Bof());
    rs.MoveFirst();
    ASSERT_TRUE(rs.AppendStored(Debt("C", 3.0)));
    EXPECT_EQ(rs.Field("OIDR").toString(), "A");
    EXPECT_EQ(rs.RecordCount(), 3);
    rs.MoveLast();
    rs.MoveNext();
    ASSERT_TRUE(rs.Eof());
    ASSERT_TRUE(rs.AppendStored(Debt("D", 4.0)));
    EXPECT_TRUE(rs.Eof());
    rs.MovePrevious();
    EXPECT_EQ(rs.Field("OIDR").toString(), "D");
}

TEST(RecordsetAppendStored, NullChapterBecomesAnEmptyNestedRecordset) {
    Recordset rs({FieldDef::Make("ID", FieldType::Integer),
                  FieldDef::Chapter("BR", {FieldDef::Make("X", FieldType::Integer)})});
    ASSERT_TRUE(rs.AppendStored({1, Value()}));
    rs.MoveFirst();
    const RecordsetPtr nested = rs.Field("BR").toRecordset();
    ASSERT_TRUE(nested);
    EXPECT_EQ(nested->RecordCount(), 0);
    EXPECT_TRUE(nested->HasField("X"));
}

TEST(RecordsetAppendStored, StoredRowsTakeTheirPlaceAtTheNextSort) {
    Recordset rs(DebtFields());
    ASSERT_TRUE(rs.AppendStored(Debt("B", 2.0)));
    ASSERT_TRUE(rs.AppendStored(Debt("A", 1.0)));
    ASSERT_TRUE(rs.SetSort("OIDR").ok());
    rs.MoveFirst();
    EXPECT_EQ(rs.Field("OIDR").toString(), "A");
}

TEST(RecordsetAppendStored, NumberThatIsNoAmountIsRefusedThoughAlreadyADouble) {
    Recordset rs(DebtFields());
    EXPECT_FALSE(rs.AppendStored(Debt("A", std::numeric_limits<double>::infinity())));
    EXPECT_FALSE(rs.AppendStored(Debt("A", std::numeric_limits<double>::quiet_NaN())));
    EXPECT_EQ(rs.RowCountAll(), 0);
}

TEST(RecordsetAppendStored, WholeNumberInASmallIntFieldIsCheckedForItsRange) {
    Recordset rs(DebtFields());
    EXPECT_FALSE(rs.AppendStored({"A", Value(QDate(2024, 1, 10)), 1.0, Value(qint32(70000))}));
    ASSERT_TRUE(rs.AppendStored({"A", Value(QDate(2024, 1, 10)), 1.0, Value(qint32(-1))}));
    rs.MoveFirst();
    EXPECT_EQ(rs.Field("InfluenceSign").kind(), Value::Kind::Int16);
    EXPECT_EQ(rs.Field("InfluenceSign").toInt32(), -1);
}
