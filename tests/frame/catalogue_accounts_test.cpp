#include "frame/catalogue_accounts.h"
#include "frame/catalogue_data_access.h"
#include "frame/memory_combo_control.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

namespace {

DictionaryPtr chart() {
    DictionaryPtr map = Dictionary::Create();
    map->Add("0", Value("Pradiniai likučiai"));
    map->Add("2410", Value("Pirkėjų skolos"));
    map->Add("2710", Value("Sąskaitos bankuose"));
    return map;
}

RecordsetPtr rows(const FieldDefs& fields, const QList<ValueArray>& values) {
    RecordsetPtr rs = Recordset::Create(fields);
    for (const ValueArray& row : values) {
        rs->AddNew();
        for (int i = 0; i < row.size(); ++i)
            rs->SetField(i, row[i]);
        rs->Update();
    }
    rs->AcceptChanges();
    return rs;
}

class AccountsTest : public ::testing::Test {
protected:
    AccountsTest() {
        operation->ownProperties["AccountList"] = [](const QString&) {
            return ValueResult::Of(Value(chart()));
        };
        operation->ownProperties["MyFirmAccounts"] = [this](const QString&) {
            return ValueResult::Of(Value(firmAccounts));
        };
        operation->ownProperties["Account"] = [this](const QString& p) {
            accountAsked.append(p);
            const bool known = p == "'2410'";
            return ValueResult::Of(
                Value(rows({FieldDef::Make("Account", FieldType::VarWChar, 20),
                            FieldDef::Make("Name", FieldType::VarWChar, 100)},
                           known ? QList<ValueArray>{{Value("2410"), Value("Pirkėjų skolos")}}
                                 : QList<ValueArray>{})));
        };
        firmAccounts = rows(
            {FieldDef::Make("AccOIDR", FieldType::VarWChar, 50),
             FieldDef::Make("MainAccountFlag", FieldType::SmallInt)},
            {{Value("O0000500001"), Value(qint16(0))}, {Value("O0000500002"), Value(qint16(-1))}});
    }

    ServicesFixture fx;
    std::shared_ptr<ScriptedDataObject> operation =
        std::make_shared<ScriptedDataObject>("O0201500");
    RecordsetPtr firmAccounts;
    QStringList accountAsked;
};

} // namespace

TEST_F(AccountsTest, AccountListComesFromTheOperationObject) {
    DictionaryPtr map = Catalogue::AccountList(operation);
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->Count(), 3);
    EXPECT_EQ(map->Item("2410").toString(), "Pirkėjų skolos");
    EXPECT_EQ(operation->propertyCalls.first(), (QPair<QString, QString>{"AccountList", ""}));
}

TEST_F(AccountsTest, AccountListFailureGivesANewEmptyMap) {
    operation->ownProperties["AccountList"] = [](const QString&) {
        return ValueResult::Failure(3, "nėra");
    };
    DictionaryPtr map = Catalogue::AccountList(operation);
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->Count(), 0);
}

TEST_F(AccountsTest, MyMainAccountIsTheFlaggedFirmAccount) {
    EXPECT_EQ(Catalogue::MyMainAccount(operation), "O0000500002");
}

TEST_F(AccountsTest, MyMainAccountWithoutFlaggedAccountIsEmpty) {
    firmAccounts = rows({FieldDef::Make("AccOIDR", FieldType::VarWChar, 50),
                         FieldDef::Make("MainAccountFlag", FieldType::SmallInt)},
                        {{Value("O0000500001"), Value(qint16(0))}});
    EXPECT_EQ(Catalogue::MyMainAccount(operation), "");
}

TEST_F(AccountsTest, AccountNameIsAccountBlankName) {
    EXPECT_EQ(Catalogue::AccountName(operation, "2410"), "2410 Pirkėjų skolos");
    EXPECT_EQ(accountAsked, QStringList{"'2410'"});
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST_F(AccountsTest, UnknownAccountNameWarnsAccountLineBreakText) {
    EXPECT_EQ(Catalogue::AccountName(operation, "9999"), "");
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].text, "9999\nKlaidinga balansinės sąskaitos reikšmė!");
}

TEST_F(AccountsTest, EmptyAccountNameAsksNothing) {
    EXPECT_EQ(Catalogue::AccountName(operation, ""), "");
    EXPECT_TRUE(accountAsked.isEmpty());
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST_F(AccountsTest, PresetAccountsComeFromTheGroupObject) {
    auto group = std::make_shared<ScriptedDataObject>("O0201400");
    auto groupBO = std::make_shared<ScriptedBO>();
    groupBO->handlers["DO0201400_GetOrvoObject"] = [](const QString&, BOResult& r) {
        r.Data = Value(MakeOperation(Value(), Value(), 0, QDate()));
    };
    auto preset = rows({FieldDef::Make("Code", FieldType::VarWChar, 10),
                        FieldDef::Make("Account", FieldType::VarWChar, 20),
                        FieldDef::Make("Name", FieldType::VarWChar, 100)},
                       {{Value("2710"), Value("2711"), Value("Bankas A")},
                        {Value("2720"), Value("2721"), Value("Kasa")},
                        {Value("2710"), Value("2712"), Value("Bankas B")},
                        {Value("2710"), Value("2711"), Value("Bankas A")}});
    auto navigator = std::make_shared<TestNavigator>("O0201400", [preset](const QString&) {
        auto g = std::make_shared<ScriptedDataObject>("O0201400");
        g->ownProperties["PresetAccounts"] = [preset](const QString&) {
            return ValueResult::Of(Value(preset));
        };
        return g;
    });
    navigator->SetBO(groupBO);
    fx.objects->navigators["O0201400"] = navigator;

    DictionaryPtr banks = Catalogue::PresetAccountsByCode(operation, "2710");
    EXPECT_EQ(banks->Keys(), (QStringList{"2711", "2712"}));
    EXPECT_EQ(banks->Item("2712").toString(), "Bankas B");
    DictionaryPtr codes = Catalogue::PresetAccountCodes(operation);
    EXPECT_EQ(codes->Keys(), (QStringList{"2710", "2720"}));
    EXPECT_EQ(codes->Item("2710").toString(), "2711");
    EXPECT_EQ(fx.objects->uiRequests.first(), "O0201400");
}

TEST_F(AccountsTest, PresetAccountsWithoutGroupNavigatorAreEmpty) {
    EXPECT_EQ(Catalogue::PresetAccountsByCode(operation, "2710")->Count(), 0);
    EXPECT_EQ(Catalogue::PresetAccountCodes(operation)->Count(), 0);
}

TEST(CheckAccountInList, FirstWordOfAccountAndNameGivesTheAccountSoAComboHoldsBoth) {
    ServicesFixture fx;
    MemoryComboControl combo;
    combo.SetText("  2410 Pirkėjų skolos  ");
    EXPECT_TRUE(Catalogue::CheckAccountInList(combo, chart(), false, true));
    EXPECT_EQ(combo.Text(), "2410 Pirkėjų skolos");
    combo.SetText("2710");
    EXPECT_TRUE(Catalogue::CheckAccountInList(combo, chart(), false, true));
    EXPECT_EQ(combo.Text(), "2710 Sąskaitos bankuose");
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST(CheckAccountInList, ComboHoldingZeroIsRefusedWhenDenyZeroIsTrue) {
    ServicesFixture fx;
    MemoryComboControl combo;
    combo.SetText("0");
    EXPECT_FALSE(Catalogue::CheckAccountInList(combo, chart(), false, true));
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].text, "Klaidinga  balansinės sąskaitos reikšmė !");
    EXPECT_EQ(combo.Text(), "0");
    EXPECT_TRUE(Catalogue::CheckAccountInList(combo, chart(), false, false));
    EXPECT_EQ(combo.Text(), "0 Pradiniai likučiai");
}

TEST(CheckAccountInList, EmptyComboWarnsWithTwoBlanks) {
    ServicesFixture fx;
    MemoryComboControl combo;
    EXPECT_FALSE(Catalogue::CheckAccountInList(combo, chart(), false, false));
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].kind, MessageKind::Warning);
    EXPECT_EQ(fx.messages->shown[0].text, "Nenurodyta  balansinė sąskaita !");
}

TEST(CheckAccountInList, UnknownAccountWarnsWithTwoBlanks) {
    ServicesFixture fx;
    MemoryComboControl combo;
    combo.SetText("9999 Niekas");
    EXPECT_FALSE(Catalogue::CheckAccountInList(combo, chart(), false, false));
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].kind, MessageKind::Warning);
    EXPECT_EQ(fx.messages->shown[0].text, "Klaidinga  balansinės sąskaitos reikšmė !");
    EXPECT_EQ(combo.Text(), "9999 Niekas");
}

TEST(CheckAccountInList, QuietRefusalSaysNothing) {
    ServicesFixture fx;
    MemoryComboControl combo;
    combo.SetText("9999");
    EXPECT_FALSE(Catalogue::CheckAccountInList(combo, chart(), true, false));
    EXPECT_FALSE(Catalogue::CheckAccountInList(combo, nullptr, true, false));
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST(FillAccountCombo, ItemsAreAccountBlankNameAndTheSelectedOneIsChosen) {
    MemoryComboControl combo;
    combo.AddItem("sena");
    DictionaryPtr map = chart();
    Catalogue::FillAccountCombo(combo, map, "2410");
    EXPECT_EQ(combo.Items(), (QStringList{"0 Pradiniai likučiai", "2410 Pirkėjų skolos",
                                          "2710 Sąskaitos bankuose"}));
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.Text(), "2410 Pirkėjų skolos");
}

TEST(FillAccountCombo, AbsentSelectionChoosesNothing) {
    MemoryComboControl combo;
    DictionaryPtr map = chart();
    Catalogue::FillAccountCombo(combo, map, "5000");
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST(FillAccountCombo, EmptyListReplacesTheMapWithANewEmptyOne) {
    MemoryComboControl combo;
    combo.AddItem("sena");
    DictionaryPtr map;
    Catalogue::FillAccountCombo(combo, map, "2410");
    ASSERT_NE(map, nullptr);
    EXPECT_FALSE(map->Exists("2410"));
    EXPECT_TRUE(combo.Items().isEmpty());
}
