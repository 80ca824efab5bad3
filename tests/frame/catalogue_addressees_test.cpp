#include "frame/catalogue_addressees.h"
#include "frame/memory_check_list.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

namespace {

// An operation whose one entry has two debit addressees and one credit reference.
std::shared_ptr<ScriptedDataObject> operationWithAddressees() {
    auto uio = std::make_shared<ScriptedDataObject>("O0201500");
    RecordsetPtr rs = MakeOperation(Value("O0201500100"), Value("O0201500100"), 1, QDate());
    AddEntry(rs, Value(101), "{G1}",
             {{1, "O0000100001", "UAB Ąžuolas"},
              {1, "O0001401007", "Jonas Jonaitis"},
              {-1, "O0201500077", "Op. 77"}});
    rs->Field("BR").toRecordset()->MoveFirst();
    uio->Core().SetRsFields(rs);
    return uio;
}

RecordsetPtr propertiesOf(const OrvoObjectUIOPtr& uio) {
    return uio->Field("BR").toRecordset()->Field("BRProperties").toRecordset();
}

} // namespace

TEST(AddresseeDialogTitle, FirmsHaveTheirOwnTitle) {
    EXPECT_EQ(Catalogue::AddresseeDialogTitle("O0000100"),
              "Pasirinkite įmonę, paieškos tekstą įveskite per [Ctrl + F]");
    EXPECT_EQ(Catalogue::AddresseeDialogTitle("O0001401"), "Pažymėkite norimą adresatą");
    EXPECT_EQ(Catalogue::AddresseeDialogTitle(""), "Pažymėkite norimą adresatą");
}

TEST(SelectAddressee, PicksOnTheKindOfTheCodeAndReturnsReferenceAndText) {
    ServicesFixture fx;
    fx.pickers->answer = "O0000100001_UAB Ąžuolas";
    EXPECT_EQ(Catalogue::SelectAddressee("O0000100001", "Pasirinkite", "Name", "Active = 1"),
              "O0000100001_UAB Ąžuolas");
    ASSERT_EQ(fx.pickers->calls.size(), 1);
    EXPECT_EQ(fx.pickers->calls[0], (QStringList{"O0000100", "Pasirinkite", "Name", "Active = 1"}));
}

TEST(SelectAddressee, NoSelectionIsEmpty) {
    ServicesFixture fx;
    fx.pickers->answer = "";
    EXPECT_EQ(Catalogue::SelectAddressee("O0000100", "t", "", ""), "");
}

TEST(SelectAddressee, PrefixedAnswerKeepsOnlyTheTailFromTheLastO) {
    ServicesFixture fx;
    fx.pickers->answer = "GRO0000100001_UAB Ąžuolas";
    EXPECT_EQ(Catalogue::SelectAddressee("O0000100", "t", "", ""), "O0000100001_UAB Ąžuolas");
}

TEST(AddresseeTail, ShortAnswerIsTheWholeAndOsInTheTextDoNotCount) {
    EXPECT_EQ(Catalogue::AddresseeTail("XO00001"), "XO00001");
    EXPECT_EQ(Catalogue::AddresseeTail("O0000100001_UAB OBUOLYS"), "O0000100001_UAB OBUOLYS");
    EXPECT_EQ(Catalogue::AddresseeTail("CO0001402005"), "O0001402005");
    EXPECT_EQ(Catalogue::AddresseeTail("12345678901"), "12345678901");
}

TEST(FillAddresseeChecks, OneCheckableRowPerKindTickedWhenFoundInSelected) {
    RecordsetPtr kinds = Recordset::Create({FieldDef::Make("FOID", FieldType::VarWChar, 8),
                                            FieldDef::Make("Name", FieldType::VarWChar, 100)});
    for (const auto& [foid, name] : QList<QPair<QString, QString>>{
             {"O0000100", "Įmonė"}, {"O0001401", "Darbuotojas"}, {"O0000300", "Bankas"}}) {
        kinds->AddNew();
        kinds->SetField("FOID", Value(foid));
        kinds->SetField("Name", Value(name));
        kinds->Update();
    }
    MemoryCheckList list;
    list.AddItem("senas", "senas");
    Catalogue::FillAddresseeChecks(list, kinds, "O0000300;O0000100;");
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list.Key(1), "O0001401");
    EXPECT_EQ(list.Text(1), "Darbuotojas");
    EXPECT_TRUE(list.Checked(0));
    EXPECT_FALSE(list.Checked(1));
    EXPECT_TRUE(list.Checked(2));
}

TEST(FindProperty, FindsTheFirstReferenceOfTheCodeInTheCurrentEntry) {
    auto uio = operationWithAddressees();
    EXPECT_EQ(Catalogue::FindProperty(uio, "O0201500"), "O0201500077");
    EXPECT_EQ(Catalogue::FindProperty(uio, "O0001401"), "O0001401007");
    EXPECT_EQ(Catalogue::FindProperty(uio, "O0000300"), "");
}

TEST(FindProperty, KeepsThePositionAndTheOldFilter) {
    auto uio = operationWithAddressees();
    RecordsetPtr props = propertiesOf(uio);
    ASSERT_TRUE(props->SetFilter("Sign = 1").ok());
    props->MoveLast();
    ASSERT_EQ(props->Field("FOIDR").toString(), "O0001401007");
    EXPECT_EQ(Catalogue::FindProperty(uio, "O0201500"), "O0201500077");
    EXPECT_EQ(props->Filter(), "Sign = 1");
    EXPECT_EQ(props->RecordCount(), 2);
    EXPECT_EQ(props->Field("FOIDR").toString(), "O0001401007");
}

TEST(FindProperty, NoCurrentEntryGivesEmpty) {
    auto uio = operationWithAddressees();
    uio->Field("BR").toRecordset()->MoveLast();
    uio->Field("BR").toRecordset()->MoveNext();
    EXPECT_EQ(Catalogue::FindProperty(uio, "O0000100"), "");
    EXPECT_EQ(Catalogue::FindProperty(nullptr, "O0000100"), "");
}

TEST(BuildPropertyText, JoinsTheTextsOfOneSide) {
    auto uio = operationWithAddressees();
    EXPECT_EQ(Catalogue::BuildPropertyText(uio, 1), "UAB Ąžuolas; Jonas Jonaitis");
    EXPECT_EQ(Catalogue::BuildPropertyText(uio, -1), "Op. 77");
    EXPECT_EQ(Catalogue::BuildPropertyText(uio, 0), "Op. 77");
}
