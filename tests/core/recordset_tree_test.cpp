// Recordsets as trees: an operation's one row holds its entries (BR), each entry its
// addressees (BRProperties) and currencies (BRCurrency); and the deep copies made of them.
#include "core/recordset.h"

#include <gtest/gtest.h>

using namespace orvo;

namespace {

FieldDefs PropertyFields() {
    return {FieldDef::Make("ID", FieldType::Integer),
            FieldDef::Make("FOIDR", FieldType::VarWChar, 50),
            FieldDef::Make("Sign", FieldType::SmallInt)};
}

FieldDefs CurrencyFields() {
    return {FieldDef::Make("ID", FieldType::Integer),
            FieldDef::Make("CurrCode", FieldType::VarWChar, 3),
            FieldDef::Make("SumC", FieldType::Double)};
}

FieldDefs EntryFields() {
    return {FieldDef::Make("ID", FieldType::Integer),
            FieldDef::Make("GUID", FieldType::VarWChar, 40),
            FieldDef::Make("AccountD", FieldType::VarWChar, 20),
            FieldDef::Make("SumA", FieldType::Double),
            FieldDef::Chapter("BRProperties", PropertyFields()),
            FieldDef::Chapter("BRCurrency", CurrencyFields())};
}

FieldDefs OperationFields() {
    return {FieldDef::Make("OIDR", FieldType::VarWChar, 30),
            FieldDef::Make("DateD", FieldType::Date), FieldDef::Chapter("BR", EntryFields())};
}

// One operation with two entries; the first has two addressees and one currency row.
RecordsetPtr Operation() {
    RecordsetPtr op = Recordset::Create(OperationFields());
    op->AddNew();
    op->SetField("OIDR", "O0201500123");
    op->SetField("DateD", "2024.03.01");
    RecordsetPtr br = op->Field("BR").toRecordset();
    for (int e = 1; e <= 2; ++e) {
        br->AddNew();
        br->SetField("ID", e);
        br->SetField("AccountD", e == 1 ? "2410" : "5310");
        br->SetField("SumA", 100.0 * e);
        if (e == 1) {
            RecordsetPtr props = br->Field("BRProperties").toRecordset();
            props->AddNew();
            props->SetField("FOIDR", "O0000100555");
            props->SetField("Sign", 1);
            props->AddNew();
            props->SetField("FOIDR", "O0001401007");
            props->SetField("Sign", -1);
            RecordsetPtr cur = br->Field("BRCurrency").toRecordset();
            cur->AddNew();
            cur->SetField("CurrCode", "USD");
            cur->SetField("SumC", 110.0);
        }
    }
    return op;
}

} // namespace

TEST(RecordsetTree, AddNewGivesEveryChapterFieldAnEmptyNestedRecordset) {
    Recordset br(EntryFields());
    br.AddNew();
    RecordsetPtr props = br.Field("BRProperties").toRecordset();
    RecordsetPtr cur = br.Field("brcurrency").toRecordset();
    ASSERT_TRUE(props);
    ASSERT_TRUE(cur);
    EXPECT_NE(props, cur);
    EXPECT_EQ(props->RecordCount(), 0);
    EXPECT_EQ(props->FieldCount(), 3);
    EXPECT_TRUE(props->HasField("FOIDR"));
    EXPECT_TRUE(cur->HasField("SumC"));
}

TEST(RecordsetTree, EachNewRowGetsItsOwnNestedRecordset) {
    Recordset br(EntryFields());
    br.AddNew();
    RecordsetPtr first = br.Field("BRProperties").toRecordset();
    br.AddNew();
    RecordsetPtr second = br.Field("BRProperties").toRecordset();
    EXPECT_NE(first, second);
}

TEST(RecordsetTree, OperationRowHoldsEntriesEachHoldingPropertiesAndCurrencies) {
    RecordsetPtr op = Operation();
    ASSERT_EQ(op->RecordCount(), 1);
    op->MoveFirst();
    RecordsetPtr br = op->Field("BR").toRecordset();
    ASSERT_EQ(br->RecordCount(), 2);
    br->MoveFirst();
    EXPECT_EQ(br->Field("AccountD").toString(), QStringLiteral("2410"));
    RecordsetPtr props = br->Field("BRProperties").toRecordset();
    EXPECT_EQ(props->RecordCount(), 2);
    EXPECT_EQ(br->Field("BRCurrency").toRecordset()->RecordCount(), 1);
    br->MoveNext();
    EXPECT_EQ(br->Field("BRProperties").toRecordset()->RecordCount(), 0);
}

TEST(RecordsetTree, NestedRecordsetIsFilteredOnItsOwn) {
    RecordsetPtr op = Operation();
    RecordsetPtr br = op->Field("BR").toRecordset();
    br->MoveFirst();
    RecordsetPtr props = br->Field("BRProperties").toRecordset();
    ASSERT_EQ(props->SetFilter(" FOIDR  like 'O0000100*' ").Code, 0);
    ASSERT_EQ(props->RecordCount(), 1);
    EXPECT_EQ(props->Field("FOIDR").toString(), QStringLiteral("O0000100555"));
    EXPECT_EQ(br->RecordCount(), 2);
}

TEST(RecordsetTree, CancelBatchLeavesNestedChangesToTheNestedRecordset) {
    RecordsetPtr op = Operation();
    op->AcceptChanges();
    RecordsetPtr br = op->Field("BR").toRecordset();
    br->AcceptChanges();
    op->SetField("OIDR", "changed");
    br->AddNew();
    op->CancelBatch();
    op->MoveFirst();
    EXPECT_EQ(op->Field("OIDR").toString(), QStringLiteral("O0201500123"));
    EXPECT_EQ(op->Field("BR").toRecordset(), br);
    EXPECT_EQ(br->RecordCount(), 3);
    br->CancelBatch();
    EXPECT_EQ(br->RecordCount(), 2);
}

TEST(RecordsetClone, CopiesFieldsRowsAndValues) {
    RecordsetPtr op = Operation();
    RecordsetPtr copy = op->Clone();
    EXPECT_EQ(copy->FieldCount(), op->FieldCount());
    EXPECT_EQ(copy->RowCountAll(), 1);
    copy->MoveFirst();
    EXPECT_EQ(copy->Field("OIDR").toString(), QStringLiteral("O0201500123"));
    EXPECT_EQ(copy->Field("DateD").toDate(), QDate(2024, 3, 1));
    RecordsetPtr br = copy->Field("BR").toRecordset();
    ASSERT_TRUE(br);
    EXPECT_EQ(br->RecordCount(), 2);
    br->MoveFirst();
    EXPECT_EQ(br->Field("BRProperties").toRecordset()->RecordCount(), 2);
    EXPECT_EQ(br->Field("BRCurrency").toRecordset()->RecordCount(), 1);
}

TEST(RecordsetClone, NestedRecordsetsAreCopiesNotShared) {
    RecordsetPtr op = Operation();
    RecordsetPtr copy = op->Clone();
    EXPECT_NE(copy->Field("BR").toRecordset(), op->Field("BR").toRecordset());
    RecordsetPtr srcBr = op->Field("BR").toRecordset();
    RecordsetPtr copyBr = copy->Field("BR").toRecordset();
    srcBr->MoveFirst();
    copyBr->MoveFirst();
    EXPECT_NE(copyBr->Field("BRProperties").toRecordset(),
              srcBr->Field("BRProperties").toRecordset());
}

TEST(RecordsetClone, ChangingTheCloneLeavesTheSourceUnchangedDeeply) {
    RecordsetPtr op = Operation();
    RecordsetPtr copy = op->Clone();
    copy->MoveFirst();
    copy->SetField("OIDR", "O0201500999");
    RecordsetPtr br = copy->Field("BR").toRecordset();
    br->MoveFirst();
    br->SetField("SumA", 1.0);
    br->Delete();
    br->MoveNext();
    RecordsetPtr props = br->Field("BRProperties").toRecordset();
    props->AddNew();
    props->SetField("FOIDR", "O0000300001");
    br->MovePrevious();
    br->AddNew();

    op->MoveFirst();
    EXPECT_EQ(op->Field("OIDR").toString(), QStringLiteral("O0201500123"));
    RecordsetPtr srcBr = op->Field("BR").toRecordset();
    EXPECT_EQ(srcBr->RecordCount(), 2);
    EXPECT_EQ(srcBr->RowCountAll(), 2);
    srcBr->MoveFirst();
    EXPECT_DOUBLE_EQ(srcBr->Field("SumA").toDouble(), 100.0);
    EXPECT_EQ(srcBr->Status(), RowStatus::New);
    srcBr->MoveNext();
    EXPECT_EQ(srcBr->Field("BRProperties").toRecordset()->RecordCount(), 0);
}

TEST(RecordsetClone, ChangingTheSourceLeavesTheCloneUnchanged) {
    RecordsetPtr op = Operation();
    RecordsetPtr copy = op->Clone();
    RecordsetPtr srcBr = op->Field("BR").toRecordset();
    srcBr->MoveFirst();
    srcBr->Field("BRCurrency").toRecordset()->MoveFirst();
    srcBr->Field("BRCurrency").toRecordset()->SetField("SumC", 1.0);
    copy->MoveFirst();
    RecordsetPtr br = copy->Field("BR").toRecordset();
    br->MoveFirst();
    RecordsetPtr cur = br->Field("BRCurrency").toRecordset();
    cur->MoveFirst();
    EXPECT_DOUBLE_EQ(cur->Field("SumC").toDouble(), 110.0);
}

TEST(RecordsetClone, KeepsRowStatusesAndOriginalValues) {
    Recordset rs({FieldDef::Make("ID", FieldType::Integer),
                  FieldDef::Make("Name", FieldType::VarWChar, 10)});
    for (int i = 1; i <= 3; ++i) {
        rs.AddNew();
        rs.SetField("ID", i);
        rs.SetField("Name", QStringLiteral("n%1").arg(i));
    }
    rs.AcceptChanges();
    rs.MoveFirst();
    rs.SetField("Name", "changed");
    rs.MoveNext();
    rs.Delete();
    rs.AddNew();
    rs.SetField("ID", 4);
    RecordsetPtr copy = rs.Clone();
    ASSERT_EQ(copy->RowCountAll(), 4);
    EXPECT_EQ(copy->StatusAt(0), RowStatus::Modified);
    EXPECT_EQ(copy->StatusAt(1), RowStatus::Deleted);
    EXPECT_EQ(copy->StatusAt(2), RowStatus::Unchanged);
    EXPECT_EQ(copy->StatusAt(3), RowStatus::New);
    EXPECT_EQ(copy->OriginalValueAt(0, 1).toString(), QStringLiteral("n1"));
    EXPECT_EQ(copy->RecordCount(), 3);
    copy->CancelBatch();
    EXPECT_EQ(copy->RowCountAll(), 3);
    copy->MoveFirst();
    EXPECT_EQ(copy->Field("Name").toString(), QStringLiteral("n1"));
    EXPECT_EQ(rs.RowCountAll(), 4);
}

TEST(RecordsetClone, FilterAndSortAreNotCarriedOver) {
    Recordset rs({FieldDef::Make("ID", FieldType::Integer)});
    for (int i = 1; i <= 3; ++i) {
        rs.AddNew();
        rs.SetField("ID", i);
    }
    ASSERT_EQ(rs.SetFilter("ID > 1").Code, 0);
    ASSERT_EQ(rs.SetSort("ID DESC").Code, 0);
    RecordsetPtr copy = rs.Clone();
    EXPECT_TRUE(copy->Filter().isEmpty());
    EXPECT_TRUE(copy->Sort().isEmpty());
    EXPECT_EQ(copy->RecordCount(), 3);
    copy->MoveFirst();
    EXPECT_EQ(copy->Field("ID").toInt32(), 1);
}

TEST(RecordsetClone, BookmarksOfTheSourceFindTheSameRowsInTheClone) {
    Recordset rs({FieldDef::Make("ID", FieldType::Integer)});
    for (int i = 1; i <= 3; ++i) {
        rs.AddNew();
        rs.SetField("ID", i);
    }
    rs.SetAbsolutePosition(2);
    const qint64 mark = rs.Bookmark();
    RecordsetPtr copy = rs.Clone();
    ASSERT_TRUE(copy->SetBookmark(mark));
    EXPECT_EQ(copy->Field("ID").toInt32(), 2);
}

TEST(RecordsetClone, CloneStructureHasTheFieldsAndNoRows) {
    RecordsetPtr op = Operation();
    RecordsetPtr empty = op->CloneStructure();
    EXPECT_EQ(empty->RowCountAll(), 0);
    EXPECT_TRUE(empty->Bof());
    EXPECT_TRUE(empty->Eof());
    ASSERT_EQ(empty->FieldCount(), 3);
    EXPECT_EQ(empty->FieldDefinitions().at(0).definedSize, 30);
    empty->AddNew();
    RecordsetPtr br = empty->Field("BR").toRecordset();
    ASSERT_TRUE(br);
    EXPECT_TRUE(br->HasField("BRProperties"));
    EXPECT_EQ(op->RowCountAll(), 1);
}

TEST(RecordsetClone, CloneOfAnEmptyRecordsetIsEmpty) {
    Recordset rs({FieldDef::Make("ID", FieldType::Integer)});
    RecordsetPtr copy = rs.Clone();
    EXPECT_EQ(copy->RecordCount(), 0);
    EXPECT_TRUE(copy->Eof());
}
