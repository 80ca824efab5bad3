#include "frame/catalogue_recordsets.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

namespace {

RecordsetPtr accounts() {
    RecordsetPtr rs = Recordset::Create({FieldDef::Make("ID", FieldType::Integer),
                                         FieldDef::Make("Account", FieldType::VarWChar, 20),
                                         FieldDef::Make("MainAccountFlag", FieldType::SmallInt)});
    const QList<std::tuple<Value, QString, qint16>> rows = {
        {Value(1), "2710", 0}, {Value(), "2711", -1}, {Value(3), "2720", 0}, {Value(), "2721", 0}};
    for (const auto& [id, account, flag] : rows) {
        rs->AddNew();
        rs->SetField("ID", id);
        rs->SetField("Account", Value(account));
        rs->SetField("MainAccountFlag", Value(flag));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

} // namespace

TEST(TryFilter, MatchingRowsStayFilteredAndTrue) {
    RecordsetPtr rs = accounts();
    EXPECT_TRUE(Catalogue::TryFilter(rs, "MainAccountFlag <> 0"));
    EXPECT_EQ(rs->RecordCount(), 1);
    EXPECT_EQ(rs->Field("Account").toString(), "2711");
    EXPECT_EQ(rs->Filter(), "MainAccountFlag <> 0");
}

TEST(TryFilter, FilterThatMatchesNothingRestoresTheUnfilteredView) {
    RecordsetPtr rs = accounts();
    ASSERT_TRUE(rs->SetFilter("Account = '2710'").ok());
    EXPECT_FALSE(Catalogue::TryFilter(rs, "Account = '9999'"));
    EXPECT_EQ(rs->Filter(), "");
    EXPECT_EQ(rs->RecordCount(), 4);
}

TEST(TryFilter, NothingOrAnEmptyRecordsetOrABadFilterIsFalse) {
    EXPECT_FALSE(Catalogue::TryFilter(nullptr, "A = 1"));
    RecordsetPtr empty = Recordset::Create({FieldDef::Make("A", FieldType::Integer)});
    EXPECT_FALSE(Catalogue::TryFilter(empty, "A = 1"));
    EXPECT_EQ(empty->Filter(), "");
    RecordsetPtr rs = accounts();
    EXPECT_FALSE(Catalogue::TryFilter(rs, "Account = = '"));
    EXPECT_EQ(rs->Filter(), "");
    EXPECT_EQ(rs->RecordCount(), 4);
}

TEST(DeleteUnsavedRows, RowsWithoutIDGo) {
    RecordsetPtr rs = accounts();
    Catalogue::DeleteUnsavedRows(rs);
    EXPECT_EQ(rs->RecordCount(), 2);
    QStringList left;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        left.append(rs->Field("Account").toString());
    EXPECT_EQ(left, (QStringList{"2710", "2720"}));
}

TEST(DeleteUnsavedRows, NothingIsNoHarm) {
    Catalogue::DeleteUnsavedRows(nullptr);
    RecordsetPtr empty = Recordset::Create({FieldDef::Make("ID", FieldType::Integer)});
    Catalogue::DeleteUnsavedRows(empty);
    EXPECT_EQ(empty->RecordCount(), 0);
}

TEST(CloneRecordset, DecimalBecomesType14WithPrecision9AndTheSourcesScale) {
    FieldDef amount = FieldDef::Make("Amount", FieldType::Numeric);
    amount.precision = 19;
    amount.numericScale = 4;
    FieldDef name = FieldDef::Make("Name", FieldType::VarWChar, 50);
    name.attributes = FieldAttr::Updatable | FieldAttr::MayBeNull | FieldAttr::KeyColumn;
    RecordsetPtr rs = Recordset::Create({amount, name, FieldDef::Make("Sum", FieldType::Double),
                                         FieldDef::Make("DateD", FieldType::Date)});
    rs->AddNew();
    rs->SetField("Amount", Value(12.3456));
    rs->SetField("Name", Value("Ąžuolas"));
    rs->SetField("Sum", Value(1.5));
    rs->SetField("DateD", Value(QDate(2024, 2, 29)));
    rs->Update();

    RecordsetPtr copy = Catalogue::CloneRecordset(rs);
    ASSERT_NE(copy, nullptr);
    const FieldDefs& defs = copy->FieldDefinitions();
    ASSERT_EQ(defs.size(), 4);
    EXPECT_EQ(defs[0].type, FieldType::Decimal);
    EXPECT_EQ(defs[0].precision, 9);
    EXPECT_EQ(defs[0].numericScale, 4);
    EXPECT_EQ(defs[1].type, FieldType::VarWChar);
    EXPECT_EQ(defs[1].definedSize, 50);
    EXPECT_EQ(defs[1].attributes, name.attributes);
    EXPECT_EQ(defs[2].type, FieldType::Double);
    EXPECT_EQ(defs[3].type, FieldType::Date);
    EXPECT_DOUBLE_EQ(copy->Field("Amount").toDouble(), 12.3456);
    EXPECT_EQ(copy->Field("Name").toString(), "Ąžuolas");
    EXPECT_EQ(copy->Field("DateD").toDate(), QDate(2024, 2, 29));
    EXPECT_EQ(copy->Status(), RowStatus::Unchanged);
}

TEST(CloneRecordset, CopiesEveryVisibleRowDeeplyAndLeavesTheSourceWhereItWas) {
    RecordsetPtr op = MakeOperation(Value("O0201500100"), Value("O0201500100"), 2, QDate());
    AddEntry(op, Value(1), "{G1}", {{1, "O0000100001", "UAB"}});
    AddEntry(op, Value(2), "{G2}");
    RecordsetPtr br = op->Field("BR").toRecordset();
    br->MoveLast();

    RecordsetPtr copy = Catalogue::CloneRecordset(br);
    EXPECT_EQ(br->Field("GUID").toString(), "{G2}");
    ASSERT_EQ(copy->RecordCount(), 2);
    EXPECT_EQ(copy->Field("GUID").toString(), "{G1}");
    RecordsetPtr props = copy->Field("BRProperties").toRecordset();
    ASSERT_NE(props, nullptr);
    br->MoveFirst();
    EXPECT_NE(props, br->Field("BRProperties").toRecordset());
    ASSERT_EQ(props->RecordCount(), 1);
    props->MoveFirst();
    EXPECT_EQ(props->Field("FOIDR").toString(), "O0000100001");
    props->SetField("FOIDR", Value("pakeista"));
    br->Field("BRProperties").toRecordset()->MoveFirst();
    EXPECT_EQ(br->Field("BRProperties").toRecordset()->Field("FOIDR").toString(), "O0000100001");
}

TEST(CloneRecordset, CancellingOnTheCopyReturnsToTheCopiedState) {
    RecordsetPtr rs = accounts();
    RecordsetPtr copy = Catalogue::CloneRecordset(rs);
    copy->SetField("Account", Value("kita"));
    copy->CancelBatch();
    copy->MoveFirst();
    EXPECT_EQ(copy->RecordCount(), 4);
    EXPECT_EQ(copy->Field("Account").toString(), "2710");
}

TEST(ForEachFieldCopy, CopiesRowsNestedRecordsetsAndSkipsIDAndNull) {
    RecordsetPtr source = MakeOperation(Value(), Value("O0201504"), 5, QDate(2024, 3, 1));
    source->SetField("Comment", Value("Laikytas"));
    AddEntry(source, Value(55), "{G1}", {{1, "O0000100001", "UAB"}, {-1, "O0001401002", "Jonas"}});

    RecordsetPtr target = Recordset::Create(OperationFields());
    target->AddNew();
    target->Update();
    target->Delete();
    Catalogue::ForEachFieldCopy(source, target);

    ASSERT_EQ(target->RecordCount(), 1);
    EXPECT_EQ(target->AbsolutePosition(), 1);
    EXPECT_TRUE(target->Field("OIDR").isNull());
    EXPECT_EQ(target->Field("FOIDR").toString(), "O0201504");
    EXPECT_EQ(target->Field("Comment").toString(), "Laikytas");
    EXPECT_EQ(target->Field("BROperGroupID").toInt32(), 5);
    RecordsetPtr br = target->Field("BR").toRecordset();
    ASSERT_EQ(br->RecordCount(), 1);
    br->MoveFirst();
    EXPECT_TRUE(br->Field("ID").isNull());
    EXPECT_EQ(br->Field("GUID").toString(), "{G1}");
    RecordsetPtr props = br->Field("BRProperties").toRecordset();
    ASSERT_EQ(props->RecordCount(), 2);
    EXPECT_NE(props, source->Field("BR").toRecordset()->Field("BRProperties").toRecordset());
}
