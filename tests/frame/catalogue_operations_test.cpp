#include "frame/catalogue_operations.h"
#include "frame/memory_list_control.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

TEST(DebtsQueryName, ReferenceShorterThanEightGivesDebts3WhateverTheSign) {
    EXPECT_EQ(Catalogue::DebtsQueryName("", 1), "Debts3");
    EXPECT_EQ(Catalogue::DebtsQueryName("O000010", 0), "Debts3");
    EXPECT_EQ(Catalogue::DebtsQueryName("O000010", -1), "Debts3");
}

TEST(DebtsQueryName, DebitSideGivesDebtsByDebit) {
    EXPECT_EQ(Catalogue::DebtsQueryName("O0000100", 1), "DebtsByDebit");
    EXPECT_EQ(Catalogue::DebtsQueryName("O0000100001", 1), "DebtsByDebit");
}

TEST(DebtsQueryName, CreditSideGivesDebtsByCredit) {
    EXPECT_EQ(Catalogue::DebtsQueryName("O0000100001", -1), "DebtsByCredit");
}

TEST(DebtsQueryName, BothSidesGiveDebts2ForAKindAndDebts1ForAReference) {
    EXPECT_EQ(Catalogue::DebtsQueryName("O0000100", 0), "Debts2");
    EXPECT_EQ(Catalogue::DebtsQueryName("O0000100001", 0), "Debts1");
}

TEST(FillRelatedList, PreviewOrDateNumberCommentKeyedByBothReferences) {
    RecordsetPtr rs = Recordset::Create({FieldDef::Make("BROperOIDR", FieldType::VarWChar, 50),
                                         FieldDef::Make("BROperFOIDR", FieldType::VarWChar, 50),
                                         FieldDef::Make("Preview", FieldType::VarWChar, 200),
                                         FieldDef::Make("BROperDate", FieldType::Date),
                                         FieldDef::Make("Number", FieldType::VarWChar, 20),
                                         FieldDef::Make("Comment", FieldType::VarWChar, 100)});
    rs->AddNew();
    rs->SetField("BROperOIDR", Value("O0201500011"));
    rs->SetField("BROperFOIDR", Value("O0201504011"));
    rs->SetField("Preview", Value("Kasos pajamų orderis Nr. 5"));
    rs->Update();
    rs->AddNew();
    rs->SetField("BROperOIDR", Value("O0201500012"));
    rs->SetField("BROperFOIDR", Value("O0201500012"));
    rs->SetField("BROperDate", Value(QDate(2024, 3, 15)));
    rs->SetField("Number", Value("A-7"));
    rs->SetField("Comment", Value("Dengimas"));
    rs->Update();

    MemoryListControl list;
    list.AddItem("x", "senas");
    Catalogue::FillRelatedList(list, rs);
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Text(0), "Kasos pajamų orderis Nr. 5");
    EXPECT_EQ(list.Key(0), "O0201500011;O0201504011");
    EXPECT_EQ(list.Text(1), "2024-03-15 A-7 Dengimas");
    EXPECT_EQ(Catalogue::SplitRelatedKey(list.Key(1)),
              (QPair<QString, QString>{"O0201500012", "O0201500012"}));
}

TEST(ReadRelated, AsksRelatedBRWithTheDocumentAndTheStoredEntries) {
    ServicesFixture fx;
    auto uio = std::make_shared<ScriptedDataObject>("O0201500");
    RecordsetPtr rs = MakeOperation(Value("O0201500100"), Value("O0201503100"), 1, QDate());
    AddEntry(rs, Value(101), "{G1}");
    AddEntry(rs, Value(102), "{G2}");
    AddEntry(rs, Value(), "{G3}");
    uio->Core().SetRsFields(rs);
    RecordsetPtr related = Recordset::Create();
    uio->ownProperties["RelatedBR"] = [related](const QString&) {
        return ValueResult::Of(Value(related));
    };
    EXPECT_EQ(Catalogue::ReadRelated(uio), related);
    ASSERT_EQ(uio->propertyCalls.size(), 1);
    EXPECT_EQ(uio->propertyCalls[0],
              (QPair<QString, QString>{"RelatedBR", "'O0201503100','101,102'"}));
}

TEST(ReadRelated, FailureGivesNothing) {
    ServicesFixture fx;
    auto uio = std::make_shared<ScriptedDataObject>("O0201500");
    uio->Core().SetRsFields(MakeOperation(Value("O0201500100"), Value("O0201500100"), 1, QDate()));
    uio->ownProperties["RelatedBR"] = [](const QString&) { return ValueResult::Failure(5, "x"); };
    EXPECT_EQ(Catalogue::ReadRelated(uio), nullptr);
}

namespace {

struct DatesSetup {
    explicit DatesSetup(ServicesFixture& fx) {
        auto referenced = std::make_shared<ScriptedDataObject>("O0201500");
        referenced->Core().SetRsFields(
            MakeOperation(Value("O0201500050"), Value("O0201500050"), 1, QDate(2024, 3, 10)));
        fx.objects->byReference["O0201500055"] = referenced;
        RecordsetPtr rs =
            MakeOperation(Value("O0201500100"), Value("O0201500100"), 1, QDate(2024, 3, 12));
        AddEntry(rs, Value(101), "{G1}",
                 {{1, "O0000100001", "UAB"}, {-1, "O0201500055", "Op. 50"}});
        uio->Core().SetRsFields(rs);
    }
    std::shared_ptr<ScriptedDataObject> uio = std::make_shared<ScriptedDataObject>("O0201500");
};

RecordsetPtr relatedDated(const QDate& date) {
    RecordsetPtr rs = Recordset::Create({FieldDef::Make("DateD", FieldType::Date)});
    rs->AddNew();
    rs->SetField("DateD", Value(date));
    rs->Update();
    return rs;
}

} // namespace

TEST(CheckDatesAgainstReferences, DateEarlierThanAReferencedOperationFails) {
    ServicesFixture fx;
    DatesSetup setup(fx);
    EXPECT_FALSE(Catalogue::CheckDatesAgainstReferences(setup.uio, QDate(2024, 3, 9), nullptr));
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].kind, MessageKind::Information);
    EXPECT_EQ(fx.messages->shown[0].text, "Data neatitinka esančių nuorodų datoms!");
    EXPECT_EQ(fx.objects->uioRequests, QStringList{"O0201500055"});
}

TEST(CheckDatesAgainstReferences, SameDayAsTheReferenceFits) {
    ServicesFixture fx;
    DatesSetup setup(fx);
    EXPECT_TRUE(Catalogue::CheckDatesAgainstReferences(setup.uio, QDate(2024, 3, 10), nullptr));
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST(CheckDatesAgainstReferences, RelatedRowDatedAfterTheDateFails) {
    ServicesFixture fx;
    DatesSetup setup(fx);
    EXPECT_FALSE(Catalogue::CheckDatesAgainstReferences(setup.uio, QDate(2024, 3, 15),
                                                        relatedDated(QDate(2024, 3, 20))));
    EXPECT_EQ(fx.messages->shown.size(), 1);
    EXPECT_TRUE(Catalogue::CheckDatesAgainstReferences(setup.uio, QDate(2024, 3, 20),
                                                       relatedDated(QDate(2024, 3, 20))));
}

TEST(CheckDatesAgainstReferences, ReferencesOfOtherKindsAreNotFetched) {
    ServicesFixture fx;
    auto uio = std::make_shared<ScriptedDataObject>("O0201500");
    RecordsetPtr rs = MakeOperation(Value("O0201500100"), Value("O0201500100"), 1, QDate());
    AddEntry(rs, Value(101), "{G1}", {{1, "O0000100001", "UAB"}});
    uio->Core().SetRsFields(rs);
    EXPECT_TRUE(Catalogue::CheckDatesAgainstReferences(uio, QDate(1990, 1, 1), nullptr));
    EXPECT_TRUE(fx.objects->uioRequests.isEmpty());
}
