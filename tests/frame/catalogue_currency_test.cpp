#include "frame/catalogue_currency.h"
#include "frame/catalogue_data_access.h"
#include "frame/memory_combo_control.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

TEST(BaseCurrency, ComesFromTheSessionConstants) {
    ServicesFixture fx;
    fx.session->constants->constants["BaseCurrency"] = Value("LTL");
    EXPECT_EQ(Catalogue::GetBaseCurrency().toString(), "LTL");
    EXPECT_FALSE(Catalogue::BaseIsEuro());
    fx.session->constants->constants["BaseCurrency"] = Value("EUR");
    EXPECT_TRUE(Catalogue::BaseIsEuro());
}

TEST(RateToBase, EuroBaseTurnsTheQuotedRateOver) {
    ServicesFixture fx;
    fx.session->constants->constants["BaseCurrency"] = Value("EUR");
    EXPECT_DOUBLE_EQ(Catalogue::RateToBase(4.0), 0.25);
    EXPECT_DOUBLE_EQ(Catalogue::RateToBase(0.0), 0.0);
    fx.session->constants->constants["BaseCurrency"] = Value("LTL");
    EXPECT_DOUBLE_EQ(Catalogue::RateToBase(3.4528), 3.4528);
}

TEST(RateFromText, ReadsUnderTheBooksBaseCurrency) {
    ServicesFixture fx;
    fx.session->constants->constants["BaseCurrency"] = Value("EUR");
    EXPECT_DOUBLE_EQ(Catalogue::RateFromText("4"), 0.25);
    EXPECT_DOUBLE_EQ(Catalogue::RateFromText("1,25"), 0.8);
    EXPECT_DOUBLE_EQ(Catalogue::RateFromText("-2"), -2.0);
    EXPECT_DOUBLE_EQ(Catalogue::RateFromText("abc"), 0.0);
    fx.session->constants->constants["BaseCurrency"] = Value("LTL");
    EXPECT_DOUBLE_EQ(Catalogue::RateFromText("3,4528"), 3.4528);
}

TEST(GetOperationUIO, CallerOfTheOperationClassIsUsedItself) {
    ServicesFixture fx;
    auto caller = std::make_shared<ScriptedDataObject>("O0201500");
    EXPECT_EQ(Catalogue::GetOperationUIO(caller), caller);
    EXPECT_TRUE(fx.objects->uiRequests.isEmpty());
}

TEST(GetOperationUIO, OtherCallerGetsABlankOneFromTheOperationNavigator) {
    ServicesFixture fx;
    auto bo = std::make_shared<ScriptedBO>();
    bo->handlers["DO0201500_GetOrvoObject"] = [](const QString&, BOResult& r) {
        r.Data = Value(MakeOperation(Value(), Value(), 0, QDate()));
    };
    auto navigator = std::make_shared<TestNavigator>("O0201500", [](const QString&) {
        return std::make_shared<ScriptedDataObject>("O0201500");
    });
    navigator->SetBO(bo);
    fx.objects->navigators["O0201500"] = navigator;
    auto caller = std::make_shared<ScriptedDataObject>("O0200400");
    OrvoObjectUIOPtr op = Catalogue::GetOperationUIO(caller);
    ASSERT_NE(op, nullptr);
    EXPECT_NE(op, caller);
    EXPECT_EQ(op->OID(), "O0201500");
    EXPECT_EQ(fx.objects->uiRequests, QStringList{"O0201500"});
    EXPECT_EQ(bo->calls.first().parameters, "'O0201500'");
    EXPECT_EQ(Catalogue::GetOperationUIO(nullptr)->OID(), "O0201500");
}

TEST(CurrencyListFor, AsksTheOperationsCommandWithDateAndRateChoice) {
    ServicesFixture fx;
    auto op = std::make_shared<ScriptedDataObject>("O0201500");
    op->commands["GetCurrencyList"] = [](const ValueArray& p) {
        DictionaryPtr map = Dictionary::Create();
        map->Add("USD", Value(p.at(1).toBool() ? 0.92 : 0.9));
        return ValueResult::Of(Value(map));
    };
    DictionaryPtr map = Catalogue::CurrencyListFor(op, QDate(2024, 3, 15), true);
    EXPECT_DOUBLE_EQ(map->Item("USD").toDouble(), 0.92);
    ASSERT_EQ(op->methodCalls.size(), 1);
    EXPECT_EQ(op->methodCalls[0].second.at(0).toDate(), QDate(2024, 3, 15));
    EXPECT_TRUE(op->methodCalls[0].second.at(1).toBool());
    EXPECT_DOUBLE_EQ(
        Catalogue::CurrencyListFor(op, QDate(2024, 3, 15), false)->Item("USD").toDouble(), 0.9);
}

TEST(CurrencyListFor, FailureGivesAnEmptyMap) {
    ServicesFixture fx;
    auto op = std::make_shared<ScriptedDataObject>("O0201500");
    op->commands["GetCurrencyList"] = [](const ValueArray&) {
        return ValueResult::Failure(777, "No any currency in DB...");
    };
    DictionaryPtr map = Catalogue::CurrencyListFor(op, QDate(2024, 3, 15), true);
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->Count(), 0);
}

TEST(FillCurrencyCombo, ThreeBlanksFirstThenCodesAndTheSelectedChosen) {
    MemoryComboControl combo;
    DictionaryPtr map = Dictionary::Create();
    map->Add("USD", Value(0.9));
    map->Add("GBP", Value(1.1));
    Catalogue::FillCurrencyCombo(combo, map, "GBP");
    EXPECT_EQ(combo.Items(), (QStringList{"   ", "USD", "GBP"}));
    EXPECT_EQ(combo.ListIndex(), 2);
    Catalogue::FillCurrencyCombo(combo, map, "JPY");
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(combo.Text(), "   ");
    Catalogue::FillCurrencyCombo(combo, nullptr, "");
    EXPECT_EQ(combo.Items(), QStringList{"   "});
}

namespace {

struct CurrencySetup {
    explicit CurrencySetup(ServicesFixture& fx) {
        bo->handlers["DO0002200_GetOrvoObject"] = [](const QString& p, BOResult& r) {
            RecordsetPtr rs = Recordset::Create({FieldDef::Make("OIDR", FieldType::VarWChar, 50)});
            rs->AddNew();
            rs->SetField("OIDR", Value(p.mid(1, p.size() - 2)));
            rs->Update();
            r.Data = Value(rs);
        };
        navigator = std::make_shared<TestNavigator>("O0002200", [this](const QString&) {
            auto currency = std::make_shared<ScriptedDataObject>("O0002200");
            currency->ownProperties["CurrencyByCode"] = [this](const QString& p) {
                askedCode = p;
                RecordsetPtr rs =
                    Recordset::Create({FieldDef::Make("OIDR", FieldType::VarWChar, 50),
                                       FieldDef::Make("Code", FieldType::VarWChar, 3)});
                if (p == "'EUR'") {
                    rs->AddNew();
                    rs->SetField("OIDR", Value("O0002200005"));
                    rs->SetField("Code", Value("EUR"));
                    rs->Update();
                }
                return ValueResult::Of(Value(rs));
            };
            currency->commands["SumByWords"] = [this, currency](const ValueArray& p) {
                wordedFor = currency->OIDR();
                sum = p.value(0).toDouble();
                return ValueResult::Of(Value("vienas šimtas eurų 50 ct"));
            };
            return currency;
        });
        navigator->SetBO(bo);
        fx.objects->navigators["O0002200"] = navigator;
        fx.objects->uioFactory = [this](const QString& code) -> OrvoObjectUIOPtr {
            return code == "O0002200" ? navigator->GetOrvoObject("") : nullptr;
        };
    }
    std::shared_ptr<ScriptedBO> bo = std::make_shared<ScriptedBO>();
    std::shared_ptr<TestNavigator> navigator;
    QString askedCode;
    QString wordedFor;
    double sum = 0;
};

} // namespace

TEST(SumInWords, AsksTheCurrencyObjectFoundByItsCode) {
    ServicesFixture fx;
    CurrencySetup setup(fx);
    EXPECT_EQ(Catalogue::SumInWords(100.5, "EUR"), "vienas šimtas eurų 50 ct");
    EXPECT_EQ(setup.askedCode, "'EUR'");
    EXPECT_EQ(setup.wordedFor, "O0002200005");
    EXPECT_DOUBLE_EQ(setup.sum, 100.5);
}

TEST(SumInWords, UnknownCurrencyGivesTheEmptyText) {
    ServicesFixture fx;
    CurrencySetup setup(fx);
    EXPECT_EQ(Catalogue::SumInWords(1.0, "XXX"), "");
    EXPECT_TRUE(setup.wordedFor.isEmpty());
}

TEST(SumInWords, WithoutTheCurrencyKindGivesTheEmptyText) {
    ServicesFixture fx;
    EXPECT_EQ(Catalogue::SumInWords(1.0, "EUR"), "");
}
