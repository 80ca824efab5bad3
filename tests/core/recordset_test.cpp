// Recordset on its own: structure, navigation, typed fields, row status through editing
// and batch undo, sort, bookmarks.
#include "core/recordset.h"

#include <gtest/gtest.h>

using namespace orvo;

namespace {

FieldDefs AccountFields() {
    return {
        FieldDef::Make("ID", FieldType::Integer),
        FieldDef::Make("Account", FieldType::VarWChar, 10),
        FieldDef::Make("SortOrder", FieldType::SmallInt),
        FieldDef::Make("CurrCode", FieldType::VarWChar, 3),
        FieldDef::Make("Sum", FieldType::Double),
        FieldDef::Make("DateD", FieldType::Date),
        FieldDef::Make("Flag", FieldType::Boolean),
        FieldDef::Make("Any", FieldType::Variant),
    };
}

// Rows with IDs 1..n and the given accounts, accepted so that they read as stored.
RecordsetPtr StoredRows(const QStringList& accounts) {
    RecordsetPtr rs = Recordset::Create(AccountFields());
    int id = 0;
    for (const QString& a : accounts) {
        rs->AddNew();
        rs->SetField("ID", ++id);
        rs->SetField("Account", a);
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

QList<int> VisibleIds(Recordset& rs) {
    QList<int> out;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
        out.append(rs.Field("ID").toInt32());
    return out;
}

using Ids = QList<int>;

} // namespace

// --- Structure ------------------------------------------------------------------------

TEST(RecordsetStructure, FieldsKeepTheirDefinitionsInOrder) {
    Recordset rs(AccountFields());
    ASSERT_EQ(rs.FieldCount(), 8);
    EXPECT_EQ(rs.FieldDefinitions().at(1).name, QStringLiteral("Account"));
    EXPECT_EQ(rs.FieldDefinitions().at(1).definedSize, 10);
    EXPECT_EQ(rs.FieldDefinitions().at(2).type, FieldType::SmallInt);
}

TEST(RecordsetStructure, FieldIndexIgnoresCase) {
    Recordset rs(AccountFields());
    EXPECT_EQ(rs.FieldIndex("account"), 1);
    EXPECT_EQ(rs.FieldIndex("CURRCODE"), 3);
    EXPECT_EQ(rs.FieldIndex("Nope"), -1);
    EXPECT_TRUE(rs.HasField("sortorder"));
    EXPECT_FALSE(rs.HasField("Sort"));
}

TEST(RecordsetStructure, AppendFieldRefusesATakenNameInAnyCase) {
    Recordset rs(AccountFields());
    EXPECT_FALSE(rs.AppendField(FieldDef::Make("ACCOUNT", FieldType::Double)));
    EXPECT_TRUE(rs.AppendField(FieldDef::Make("Extra", FieldType::Double)));
    EXPECT_EQ(rs.FieldCount(), 9);
}

TEST(RecordsetStructure, AppendFieldRefusedOnceRowsExist) {
    Recordset rs(AccountFields());
    rs.AddNew();
    EXPECT_FALSE(rs.AppendField(FieldDef::Make("Extra", FieldType::Double)));
    EXPECT_EQ(rs.FieldCount(), 8);
}

// --- Navigation -----------------------------------------------------------------------

TEST(RecordsetNavigation, EmptyRecordsetIsBofAndEof) {
    Recordset rs(AccountFields());
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_TRUE(rs.Bof());
    EXPECT_TRUE(rs.Eof());
    rs.MoveFirst();
    EXPECT_TRUE(rs.Bof());
    EXPECT_TRUE(rs.Eof());
    rs.MoveLast();
    EXPECT_TRUE(rs.Bof());
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(rs.AbsolutePosition(), 0);
}

TEST(RecordsetNavigation, FieldReadWithNoCurrentRowIsNull) {
    Recordset rs(AccountFields());
    EXPECT_TRUE(rs.Field("Account").isNull());
    EXPECT_FALSE(rs.SetField("Account", "x"));
}

TEST(RecordsetNavigation, UnknownFieldReadsNullAndCannotBeSet) {
    RecordsetPtr rs = StoredRows({"2410"});
    EXPECT_TRUE(rs->Field("Nope").isNull());
    EXPECT_TRUE(rs->Field(99).isNull());
    EXPECT_FALSE(rs->SetField("Nope", 1));
}

TEST(RecordsetNavigation, WalksForwardAndBackward) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 2, 3}));
    EXPECT_TRUE(rs->Eof());
    EXPECT_FALSE(rs->Bof());
    rs->MoveLast();
    QList<int> back;
    for (; !rs->Bof(); rs->MovePrevious())
        back.append(rs->Field("ID").toInt32());
    EXPECT_EQ(back, (Ids{3, 2, 1}));
    EXPECT_FALSE(rs->Eof());
}

TEST(RecordsetNavigation, MovingPastTheEndsStaysThere) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    rs->MoveLast();
    rs->MoveNext();
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
    rs->MovePrevious();
    EXPECT_EQ(rs->Field("ID").toInt32(), 2);
    rs->MoveFirst();
    rs->MovePrevious();
    rs->MovePrevious();
    EXPECT_TRUE(rs->Bof());
    rs->MoveNext();
    EXPECT_EQ(rs->Field("ID").toInt32(), 1);
}

TEST(RecordsetNavigation, AbsolutePositionCountsVisibleRowsFromOne) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->MoveFirst();
    EXPECT_EQ(rs->AbsolutePosition(), 1);
    rs->MoveLast();
    EXPECT_EQ(rs->AbsolutePosition(), 3);
    EXPECT_TRUE(rs->SetAbsolutePosition(2));
    EXPECT_EQ(rs->Field("ID").toInt32(), 2);
    EXPECT_FALSE(rs->SetAbsolutePosition(4));
    EXPECT_FALSE(rs->SetAbsolutePosition(0));
    EXPECT_EQ(rs->Field("ID").toInt32(), 2);
    rs->MoveLast();
    rs->MoveNext();
    EXPECT_EQ(rs->AbsolutePosition(), 0);
}

TEST(RecordsetNavigation, FilteredEmptyViewIsBofAndEof) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    ASSERT_EQ(rs->SetFilter("Account = 'z'").Code, 0);
    EXPECT_EQ(rs->RecordCount(), 0);
    EXPECT_TRUE(rs->Bof());
    EXPECT_TRUE(rs->Eof());
    EXPECT_TRUE(rs->Field("ID").isNull());
    EXPECT_FALSE(rs->Delete());
}

TEST(RecordsetNavigation, BookmarkBringsBackTheRowAfterASortChange) {
    RecordsetPtr rs = StoredRows({"c", "a", "b"});
    rs->SetAbsolutePosition(2);
    const qint64 mark = rs->Bookmark();
    ASSERT_GE(mark, 0);
    ASSERT_EQ(rs->SetSort("Account DESC").Code, 0);
    rs->MoveFirst();
    EXPECT_TRUE(rs->SetBookmark(mark));
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("a"));
    EXPECT_EQ(rs->AbsolutePosition(), 3);
}

TEST(RecordsetNavigation, BookmarkOfAHiddenRowCannotBeSet) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    rs->MoveLast();
    const qint64 mark = rs->Bookmark();
    ASSERT_EQ(rs->SetFilter("Account = 'a'").Code, 0);
    EXPECT_FALSE(rs->SetBookmark(mark));
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("a"));
}

TEST(RecordsetNavigation, BookmarkIsMinusOneWithoutACurrentRow) {
    RecordsetPtr rs = StoredRows({"a"});
    rs->MoveNext();
    EXPECT_EQ(rs->Bookmark(), -1);
}

// --- Typed fields ---------------------------------------------------------------------

class RecordsetFields : public ::testing::Test {
protected:
    void SetUp() override { rs.AddNew(); }
    Recordset rs{AccountFields()};
};

TEST_F(RecordsetFields, TextWithCommaOrDotBecomesDouble) {
    ASSERT_TRUE(rs.SetField("Sum", "12,5"));
    EXPECT_EQ(rs.Field("Sum").kind(), Value::Kind::Double);
    EXPECT_DOUBLE_EQ(rs.Field("Sum").toDouble(), 12.5);
    ASSERT_TRUE(rs.SetField("Sum", "12.25"));
    EXPECT_DOUBLE_EQ(rs.Field("Sum").toDouble(), 12.25);
}

TEST_F(RecordsetFields, IntegerBecomesDoubleInADoubleField) {
    ASSERT_TRUE(rs.SetField("Sum", 7));
    EXPECT_EQ(rs.Field("Sum").kind(), Value::Kind::Double);
}

TEST_F(RecordsetFields, NonNumberIsRefusedByANumberFieldAndNothingChanges) {
    ASSERT_TRUE(rs.SetField("Sum", 3.0));
    EXPECT_FALSE(rs.SetField("Sum", "abc"));
    EXPECT_FALSE(rs.SetField("Sum", ""));
    EXPECT_DOUBLE_EQ(rs.Field("Sum").toDouble(), 3.0);
}

TEST_F(RecordsetFields, DateTextBecomesDate) {
    ASSERT_TRUE(rs.SetField("DateD", "2024.03.01"));
    EXPECT_EQ(rs.Field("DateD").kind(), Value::Kind::Date);
    EXPECT_EQ(rs.Field("DateD").toDate(), QDate(2024, 3, 1));
    ASSERT_TRUE(rs.SetField("DateD", "2024-12-31"));
    EXPECT_EQ(rs.Field("DateD").toDate(), QDate(2024, 12, 31));
}

TEST_F(RecordsetFields, DateTextWithTimeKeepsTheTime) {
    ASSERT_TRUE(rs.SetField("DateD", "2024-03-01 10:30:00"));
    EXPECT_EQ(rs.Field("DateD").kind(), Value::Kind::DateTime);
    EXPECT_EQ(rs.Field("DateD").toDateTime(), QDateTime(QDate(2024, 3, 1), QTime(10, 30)));
}

TEST_F(RecordsetFields, BadDateIsRefused) {
    EXPECT_FALSE(rs.SetField("DateD", "2024.02.30"));
    EXPECT_FALSE(rs.SetField("DateD", "rytoj"));
    EXPECT_TRUE(rs.Field("DateD").isNull());
}

TEST_F(RecordsetFields, SmallIntChecksItsRange) {
    ASSERT_TRUE(rs.SetField("SortOrder", 32767));
    EXPECT_EQ(rs.Field("SortOrder").kind(), Value::Kind::Int16);
    EXPECT_FALSE(rs.SetField("SortOrder", 40000));
    EXPECT_FALSE(rs.SetField("SortOrder", -32769));
    EXPECT_EQ(rs.Field("SortOrder").toInt32(), 32767);
    ASSERT_TRUE(rs.SetField("SortOrder", "12"));
    EXPECT_EQ(rs.Field("SortOrder").toInt32(), 12);
}

TEST_F(RecordsetFields, IntegerTakesNumbersAndNumericTexts) {
    ASSERT_TRUE(rs.SetField("ID", "42"));
    EXPECT_EQ(rs.Field("ID").kind(), Value::Kind::Int32);
    EXPECT_EQ(rs.Field("ID").toInt32(), 42);
    ASSERT_TRUE(rs.SetField("ID", 7.0));
    EXPECT_EQ(rs.Field("ID").toInt32(), 7);
    EXPECT_FALSE(rs.SetField("ID", 3.0e10));
    EXPECT_FALSE(rs.SetField("ID", QDate(2024, 1, 1)));
}

TEST_F(RecordsetFields, TextLongerThanDefinedSizeIsRefused) {
    ASSERT_TRUE(rs.SetField("CurrCode", "EUR"));
    EXPECT_FALSE(rs.SetField("CurrCode", "EURO"));
    EXPECT_EQ(rs.Field("CurrCode").toString(), QStringLiteral("EUR"));
}

TEST_F(RecordsetFields, NumberIntoATextFieldBecomesText) {
    ASSERT_TRUE(rs.SetField("Account", 2410));
    EXPECT_EQ(rs.Field("Account").kind(), Value::Kind::Text);
    EXPECT_EQ(rs.Field("Account").toString(), QStringLiteral("2410"));
}

TEST_F(RecordsetFields, NullIsAcceptedByEveryField) {
    ASSERT_TRUE(rs.SetField("Sum", 1.0));
    for (int i = 0; i < rs.FieldCount(); ++i) {
        EXPECT_TRUE(rs.SetField(i, Value())) << i;
        EXPECT_TRUE(rs.Field(i).isNull()) << i;
    }
}

TEST_F(RecordsetFields, VariantKeepsAnyValueAsItIs) {
    ASSERT_TRUE(rs.SetField("Any", "12,5"));
    EXPECT_EQ(rs.Field("Any").kind(), Value::Kind::Text);
    ASSERT_TRUE(rs.SetField("Any", QDate(2024, 1, 2)));
    EXPECT_EQ(rs.Field("Any").kind(), Value::Kind::Date);
    ASSERT_TRUE(rs.SetField("Any", ValueArray{Value(1), Value("a")}));
    EXPECT_EQ(rs.Field("Any").toArray().size(), 2);
}

TEST_F(RecordsetFields, BooleanTakesMinusOneZeroAndWords) {
    ASSERT_TRUE(rs.SetField("Flag", -1));
    EXPECT_EQ(rs.Field("Flag").kind(), Value::Kind::Bool);
    EXPECT_TRUE(rs.Field("Flag").toBool());
    ASSERT_TRUE(rs.SetField("Flag", "False"));
    EXPECT_FALSE(rs.Field("Flag").toBool());
    EXPECT_FALSE(rs.SetField("Flag", "gal"));
}

TEST(RecordsetFieldTypes, DecimalFieldRoundsToItsScale) {
    FieldDef d = FieldDef::Make("Rate", FieldType::Decimal);
    d.precision = 9;
    d.numericScale = 4;
    Recordset rs({d, FieldDef::Make("Cur", FieldType::Currency)});
    rs.AddNew();
    ASSERT_TRUE(rs.SetField("Rate", 3.45281234));
    EXPECT_DOUBLE_EQ(rs.Field("Rate").toDouble(), 3.4528);
    ASSERT_TRUE(rs.SetField("Cur", 1.234567));
    EXPECT_DOUBLE_EQ(rs.Field("Cur").toDouble(), 1.2346);
}

TEST(RecordsetFieldTypes, ChapterFieldTakesOnlyARecordset) {
    Recordset rs({FieldDef::Chapter("BR", {FieldDef::Make("X", FieldType::Integer)})});
    rs.AddNew();
    EXPECT_FALSE(rs.SetField("BR", "text"));
    RecordsetPtr other = Recordset::Create({FieldDef::Make("X", FieldType::Integer)});
    EXPECT_TRUE(rs.SetField("BR", other));
    EXPECT_EQ(rs.Field("BR").toRecordset(), other);
}

// --- Row status, Delete, CancelBatch, AcceptChanges -----------------------------------

TEST(RecordsetStatus, AddNewMakesANewCurrentRow) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    rs->MoveFirst();
    rs->AddNew();
    EXPECT_EQ(rs->Status(), RowStatus::New);
    EXPECT_EQ(rs->RecordCount(), 3);
    EXPECT_EQ(rs->AbsolutePosition(), 3);
    EXPECT_TRUE(rs->Field("Account").isNull());
    EXPECT_EQ(rs->StatusAt(2), RowStatus::New);
    EXPECT_TRUE(rs->OriginalValueAt(2, 1).isNull());
}

TEST(RecordsetStatus, AcceptedRowsAreUnchanged) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    EXPECT_EQ(rs->Status(), RowStatus::Unchanged);
    EXPECT_EQ(rs->StatusAt(0), RowStatus::Unchanged);
    EXPECT_EQ(rs->StatusAt(1), RowStatus::Unchanged);
}

TEST(RecordsetStatus, SettingAFieldOfAnUnchangedRowMakesItModified) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    rs->MoveLast();
    ASSERT_TRUE(rs->SetField("Account", "z"));
    EXPECT_EQ(rs->Status(), RowStatus::Modified);
    EXPECT_EQ(rs->StatusAt(0), RowStatus::Unchanged);
    EXPECT_EQ(rs->ValueAt(1, 1).toString(), QStringLiteral("z"));
    EXPECT_EQ(rs->OriginalValueAt(1, 1).toString(), QStringLiteral("b"));
}

TEST(RecordsetStatus, SettingAFieldOfANewRowKeepsItNew) {
    Recordset rs(AccountFields());
    rs.AddNew();
    rs.SetField("Account", "x");
    rs.Update();
    EXPECT_EQ(rs.Status(), RowStatus::New);
}

TEST(RecordsetStatus, RefusedValueLeavesAnUnchangedRowUnchanged) {
    RecordsetPtr rs = StoredRows({"a"});
    EXPECT_FALSE(rs->SetField("Sum", "abc"));
    EXPECT_EQ(rs->Status(), RowStatus::Unchanged);
}

TEST(RecordsetStatus, DeleteMarksAStoredRowAndHidesIt) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->SetAbsolutePosition(2);
    ASSERT_TRUE(rs->Delete());
    EXPECT_EQ(rs->Status(), RowStatus::Deleted);
    EXPECT_EQ(rs->RecordCount(), 2);
    EXPECT_EQ(rs->RowCountAll(), 3);
    EXPECT_EQ(rs->StatusAt(1), RowStatus::Deleted);
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 3}));
}

TEST(RecordsetStatus, DeletedRowStaysCurrentUntilTheNextMove) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->SetAbsolutePosition(2);
    ASSERT_TRUE(rs->Delete());
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("b"));
    EXPECT_FALSE(rs->Eof());
    EXPECT_FALSE(rs->SetField("Account", "x"));
    EXPECT_FALSE(rs->Delete());
}

TEST(RecordsetStatus, DeleteThenMoveNextWalksOnToTheFollowingRow) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->SetAbsolutePosition(2);
    ASSERT_TRUE(rs->Delete());
    rs->MoveNext();
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("c"));
    EXPECT_EQ(rs->AbsolutePosition(), 2);
}

TEST(RecordsetStatus, DeleteThenMovePreviousGoesToTheRowBefore) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->SetAbsolutePosition(2);
    ASSERT_TRUE(rs->Delete());
    rs->MovePrevious();
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("a"));
}

TEST(RecordsetStatus, DeletingTheLastRowThenMoveNextReachesEof) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    rs->MoveLast();
    ASSERT_TRUE(rs->Delete());
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
}

TEST(RecordsetStatus, DeletingInALoopRemovesEveryMatchingRow) {
    RecordsetPtr rs = StoredRows({"x", "a", "x", "x", "b", "x"});
    rs->MoveFirst();
    while (!rs->Eof()) {
        if (rs->Field("Account").toString() == QLatin1String("x"))
            rs->Delete();
        rs->MoveNext();
    }
    EXPECT_EQ(VisibleIds(*rs), (Ids{2, 5}));
}

TEST(RecordsetStatus, DeletingANewRowDropsItOutright) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    rs->AddNew();
    rs->SetField("ID", 3);
    rs->AddNew();
    rs->SetField("ID", 4);
    rs->SetAbsolutePosition(3);
    ASSERT_TRUE(rs->Delete());
    EXPECT_EQ(rs->RowCountAll(), 3);
    EXPECT_EQ(rs->Status(), RowStatus::Deleted);
    EXPECT_TRUE(rs->Field("ID").isNull());
    rs->MoveNext();
    EXPECT_EQ(rs->Field("ID").toInt32(), 4);
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 2, 4}));
}

TEST(RecordsetStatus, AcceptChangesForgetsDeletedRowsAndMarksAllUnchanged) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->MoveFirst();
    rs->Delete();
    rs->MoveNext();
    rs->SetField("Account", "B");
    rs->AddNew();
    rs->SetField("ID", 4);
    rs->AcceptChanges();
    EXPECT_EQ(rs->RowCountAll(), 3);
    for (int i = 0; i < rs->RowCountAll(); ++i)
        EXPECT_EQ(rs->StatusAt(i), RowStatus::Unchanged) << i;
    EXPECT_EQ(rs->OriginalValueAt(0, 1).toString(), QStringLiteral("B"));
    EXPECT_EQ(VisibleIds(*rs), (Ids{2, 3, 4}));
}

TEST(RecordsetStatus, AcceptChangesKeepsTheCurrentRow) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->SetAbsolutePosition(3);
    rs->SetField("Account", "C");
    rs->AcceptChanges();
    EXPECT_EQ(rs->Field("ID").toInt32(), 3);
}

TEST(RecordsetStatus, CancelBatchUndoesEveryChangeSinceAcceptChanges) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->MoveFirst();
    rs->SetField("Account", "A");
    rs->SetField("Account", "AA");
    rs->MoveNext();
    rs->Delete();
    rs->AddNew();
    rs->SetField("ID", 4);
    rs->CancelBatch();
    EXPECT_EQ(rs->RowCountAll(), 3);
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 2, 3}));
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("a"));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(rs->StatusAt(i), RowStatus::Unchanged) << i;
}

TEST(RecordsetStatus, CancelBatchOfAModifiedThenDeletedRowRestoresItsOriginalValues) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    rs->MoveFirst();
    rs->SetField("Account", "changed");
    rs->Delete();
    rs->CancelBatch();
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("a"));
    EXPECT_EQ(rs->Status(), RowStatus::Unchanged);
}

TEST(RecordsetStatus, CancelBatchOnAFreshRecordsetRemovesEveryRow) {
    Recordset rs(AccountFields());
    rs.AddNew();
    rs.AddNew();
    rs.CancelBatch();
    EXPECT_EQ(rs.RowCountAll(), 0);
    EXPECT_TRUE(rs.Bof());
    EXPECT_TRUE(rs.Eof());
}

TEST(RecordsetStatus, CancelBatchKeepsTheFilter) {
    RecordsetPtr rs = StoredRows({"a", "b", "a"});
    ASSERT_EQ(rs->SetFilter("Account = 'a'").Code, 0);
    rs->AddNew();
    rs->SetField("Account", "a");
    rs->CancelBatch();
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 3}));
}

TEST(RecordsetStatus, ModifiedOnlyTransferIsAFlagOfTheRecordset) {
    Recordset rs(AccountFields());
    EXPECT_FALSE(rs.ModifiedOnlyTransfer());
    rs.SetModifiedOnlyTransfer(true);
    EXPECT_TRUE(rs.ModifiedOnlyTransfer());
}

TEST(RecordsetStatus, NewRowStaysVisibleUnderAFilterItDoesNotMatch) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    ASSERT_EQ(rs->SetFilter("Account = 'a'").Code, 0);
    rs->AddNew();
    rs->SetField("Account", "zzz");
    EXPECT_EQ(rs->RecordCount(), 2);
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("zzz"));
    ASSERT_EQ(rs->SetFilter(rs->Filter()).Code, 0);
    EXPECT_EQ(rs->RecordCount(), 1);
}

// --- Sort -----------------------------------------------------------------------------

namespace {
RecordsetPtr SortRows() {
    RecordsetPtr rs = Recordset::Create(AccountFields());
    const struct {
        int id;
        int order;
        const char* curr;
        double sum;
    } rows[] = {{1, 2, "USD", 10}, {2, 1, "EUR", 30}, {3, 2, "EUR", 20},
                {4, 1, "USD", 40}, {5, 2, "EUR", 50}, {6, 1, "eur", 60}};
    for (const auto& r : rows) {
        rs->AddNew();
        rs->SetField("ID", r.id);
        rs->SetField("SortOrder", r.order);
        rs->SetField("CurrCode", r.curr);
        rs->SetField("Sum", r.sum);
    }
    rs->AcceptChanges();
    return rs;
}
} // namespace

TEST(RecordsetSort, ByOneNumberKey) {
    RecordsetPtr rs = SortRows();
    ASSERT_EQ(rs->SetSort("Sum").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 3, 2, 4, 5, 6}));
}

TEST(RecordsetSort, DescendingKey) {
    RecordsetPtr rs = SortRows();
    ASSERT_EQ(rs->SetSort("Sum DESC").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{6, 5, 4, 2, 3, 1}));
    EXPECT_EQ(rs->Sort(), QStringLiteral("Sum DESC"));
}

TEST(RecordsetSort, TwoKeysAndStableForTies) {
    RecordsetPtr rs = SortRows();
    // CurrCode ignores case, so "EUR" and "eur" tie and keep insertion order.
    ASSERT_EQ(rs->SetSort("SortOrder,CurrCode").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{2, 6, 4, 3, 5, 1}));
}

TEST(RecordsetSort, TwoKeysWithTheSecondDescendingAndAscWritten) {
    RecordsetPtr rs = SortRows();
    ASSERT_EQ(rs->SetSort("sortorder ASC, Sum desc").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{6, 4, 2, 5, 3, 1}));
}

TEST(RecordsetSort, EmptySortReturnsToInsertionOrder) {
    RecordsetPtr rs = SortRows();
    ASSERT_EQ(rs->SetSort("Sum DESC").Code, 0);
    ASSERT_EQ(rs->SetSort("").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 2, 3, 4, 5, 6}));
}

TEST(RecordsetSort, NullSortsFirst) {
    RecordsetPtr rs = SortRows();
    rs->SetAbsolutePosition(4);
    rs->SetField("Sum", Value());
    ASSERT_EQ(rs->SetSort("Sum").Code, 0);
    EXPECT_EQ(VisibleIds(*rs).first(), 4);
}

TEST(RecordsetSort, DatesSortByTime) {
    RecordsetPtr rs = SortRows();
    const char* dates[] = {"2024.05.01", "2023.12.31", "2024.01.15",
                           "2024.01.02", "2025.01.01", "2024.01.10"};
    int i = 0;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        ASSERT_TRUE(rs->SetField("DateD", dates[i++]));
    ASSERT_EQ(rs->SetSort("DateD").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{2, 4, 6, 3, 1, 5}));
}

TEST(RecordsetSort, SortWorksOnTheFilteredView) {
    RecordsetPtr rs = SortRows();
    ASSERT_EQ(rs->SetFilter("CurrCode = 'EUR'").Code, 0);
    ASSERT_EQ(rs->SetSort("Sum DESC").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{6, 5, 2, 3}));
    ASSERT_EQ(rs->SetFilter("Sum > 25").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{6, 5, 4, 2}));
}

TEST(RecordsetSort, SortKeepsTheCurrentRow) {
    RecordsetPtr rs = SortRows();
    rs->SetAbsolutePosition(3);
    ASSERT_EQ(rs->SetSort("Sum DESC").Code, 0);
    EXPECT_EQ(rs->Field("ID").toInt32(), 3);
    EXPECT_EQ(rs->AbsolutePosition(), 5);
}

TEST(RecordsetSort, UnknownFieldIsRefusedAndTheSortStays) {
    RecordsetPtr rs = SortRows();
    ASSERT_EQ(rs->SetSort("Sum DESC").Code, 0);
    const ResultRecord r = rs->SetSort("Sum, Nope");
    EXPECT_NE(r.Code, 0);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("Nope")));
    EXPECT_EQ(rs->Sort(), QStringLiteral("Sum DESC"));
    EXPECT_EQ(VisibleIds(*rs).first(), 6);
}

TEST(RecordsetSort, BadDirectionWordIsRefused) {
    RecordsetPtr rs = SortRows();
    EXPECT_NE(rs->SetSort("Sum DOWN").Code, 0);
    EXPECT_NE(rs->SetSort("Sum,,ID").Code, 0);
}

TEST(RecordsetSort, BracketedFieldNameIsRead) {
    RecordsetPtr rs = SortRows();
    ASSERT_EQ(rs->SetSort("[Sum] DESC").Code, 0);
    EXPECT_EQ(VisibleIds(*rs).first(), 6);
}

TEST(RecordsetSort, TextsSortWithoutRegardToCase) {
    RecordsetPtr rs = StoredRows({"b", "A", "c", "a", "B"});
    ASSERT_EQ(rs->SetSort("Account").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{2, 4, 1, 5, 3}));
}

TEST(RecordsetSort, LongTextsThatShareTheirStartSortByTheWholeText) {
    RecordsetPtr rs =
        StoredRows({"O000010099", "O00001001", "O000010005", "O0000100", "O00001009"});
    ASSERT_EQ(rs->SetSort("Account").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{4, 3, 2, 5, 1}));
    ASSERT_EQ(rs->SetSort("Account DESC").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 5, 2, 3, 4}));
}

TEST(RecordsetSort, NullTextsSortFirst) {
    RecordsetPtr rs = StoredRows({"b", "a"});
    rs->AddNew();
    rs->SetField("ID", 3);
    ASSERT_EQ(rs->SetSort("Account").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{3, 2, 1}));
}

TEST(RecordsetSort, VariantFieldSortsByValue) {
    RecordsetPtr rs = StoredRows({"a", "b", "c", "d"});
    const Value values[] = {Value(10), Value(2.5), Value(), Value(-1)};
    int i = 0;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        ASSERT_TRUE(rs->SetField("Any", values[i++]));
    ASSERT_EQ(rs->SetSort("Any DESC").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{1, 2, 4, 3}));
}

TEST(RecordsetSort, BooleanFieldSortsTrueBeforeFalseAsMinusOne) {
    RecordsetPtr rs = StoredRows({"a", "b", "c"});
    rs->MoveFirst();
    rs->SetField("Flag", false);
    rs->MoveNext();
    rs->SetField("Flag", true);
    rs->MoveNext();
    rs->SetField("Flag", false);
    ASSERT_EQ(rs->SetSort("Flag").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{2, 1, 3}));
}

TEST(RecordsetStatus, DeletingTheOnlyRowThenMoveNextLeavesAnEmptyView) {
    RecordsetPtr rs = StoredRows({"a"});
    ASSERT_TRUE(rs->Delete());
    EXPECT_EQ(rs->RecordCount(), 0);
    rs->MoveNext();
    EXPECT_TRUE(rs->Bof());
    EXPECT_TRUE(rs->Eof());
}

TEST(RecordsetStatus, DeletingUnderAFilterHidesOnlyThatRow) {
    RecordsetPtr rs = StoredRows({"x", "a", "x"});
    ASSERT_EQ(rs->SetFilter("Account = 'x'").Code, 0);
    ASSERT_TRUE(rs->Delete());
    rs->MoveNext();
    EXPECT_EQ(rs->Field("ID").toInt32(), 3);
    ASSERT_EQ(rs->SetFilter("").Code, 0);
    EXPECT_EQ(VisibleIds(*rs), (Ids{2, 3}));
}

TEST(RecordsetStoredRows, SetValueAtWritesWithoutChangingStatusOrPosition) {
    RecordsetPtr rs = StoredRows({"a", "b"});
    rs->MoveFirst();
    ASSERT_TRUE(rs->SetValueAt(1, rs->FieldIndex("Sum"), "12,5"));
    EXPECT_EQ(rs->StatusAt(1), RowStatus::Unchanged);
    EXPECT_DOUBLE_EQ(rs->ValueAt(1, rs->FieldIndex("Sum")).toDouble(), 12.5);
    EXPECT_EQ(rs->Field("ID").toInt32(), 1);
    EXPECT_FALSE(rs->SetValueAt(1, rs->FieldIndex("Sum"), "abc"));
    EXPECT_FALSE(rs->SetValueAt(5, 0, 1));
    EXPECT_FALSE(rs->SetValueAt(0, 99, 1));
}

TEST(RecordsetStoredRows, SetValueAtOfAModifiedRowAlsoSetsItsOriginal) {
    RecordsetPtr rs = StoredRows({"a"});
    rs->SetField("Account", "changed");
    ASSERT_TRUE(rs->SetValueAt(0, 0, 77));
    EXPECT_EQ(rs->Status(), RowStatus::Modified);
    EXPECT_EQ(rs->OriginalValueAt(0, 0).toInt32(), 77);
    rs->CancelBatch();
    rs->MoveFirst();
    EXPECT_EQ(rs->Field("ID").toInt32(), 77);
    EXPECT_EQ(rs->Field("Account").toString(), QStringLiteral("a"));
}

TEST(RecordsetStoredRows, ValueAtAndStatusAtOutsideTheRowsAreNullAndUnchanged) {
    RecordsetPtr rs = StoredRows({"a"});
    EXPECT_TRUE(rs->ValueAt(-1, 0).isNull());
    EXPECT_TRUE(rs->ValueAt(1, 0).isNull());
    EXPECT_TRUE(rs->OriginalValueAt(0, 42).isNull());
    EXPECT_EQ(rs->StatusAt(7), RowStatus::Unchanged);
}
