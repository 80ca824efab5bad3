#include "frame/methods_convention.h"
#include "frame/properties_convention.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

TEST(MethodsConvention, WrongParameterCountTextNamesTheCommandOnTwoLines) {
    EXPECT_EQ(MethodsConvention::WrongParametersText("AddBR"),
              QString("Method AddBR:\nKlaidingi parametrai !"));
    const ValueResult r = MethodsConvention::WrongParameters("AddBR");
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, QString("Method AddBR:\nKlaidingi parametrai !"));
    EXPECT_TRUE(r.Value.isNull());
}

TEST(MethodsConvention, CountCheckTakesBoundsInclusiveAndOpenTop) {
    const ValueArray three{Value(1), Value(2), Value(3)};
    EXPECT_TRUE(MethodsConvention::CountIn(three, 3, 12));
    EXPECT_TRUE(MethodsConvention::CountIn(three, 1, 3));
    EXPECT_FALSE(MethodsConvention::CountIn(three, 4, 12));
    EXPECT_FALSE(MethodsConvention::CountIn(three, 0, 2));
    EXPECT_TRUE(MethodsConvention::CountIn(three, 2, -1));
    EXPECT_TRUE(MethodsConvention::CountIs(three, 3));
    EXPECT_FALSE(MethodsConvention::CountIs(ValueArray{}, 1));
}

TEST(MethodsConvention, ParameterPastTheEndIsNull) {
    const ValueArray one{Value("a")};
    EXPECT_EQ(MethodsConvention::At(one, 0).toString(), "a");
    EXPECT_TRUE(MethodsConvention::At(one, 1).isNull());
    EXPECT_TRUE(MethodsConvention::At(one, -1).isNull());
}

TEST(MethodsConvention, UnknownCommandIsNeverASuccess) {
    const ValueResult r = MethodsConvention::UnknownCommand("Nothing");
    EXPECT_NE(r.Code, 0);
    EXPECT_TRUE(r.Text.contains("Nothing"));
}

class PropertiesConventionTest : public ::testing::Test {
protected:
    PropertiesConventionTest() {
        bo->handlers["GetMyFirmAccounts"] = [](const QString&, BOResult& r) {
            r.Data = Value("accounts");
        };
        bo->handlers["GetDebts1"] = [](const QString& p, BOResult& r) { r.Data = Value(p); };
        bo->handlers["DO0201500_GetOrvoObject"] = [](const QString&, BOResult& r) {
            r.Data = Value("direct");
        };
        bo->handlers["GetAccount"] = [](const QString&, BOResult& r) {
            r.Code = 5;
            r.Text = "Sąskaita nerasta";
        };
        object->Core().SetBO(bo);
        object->ownProperties["CurrencyList"] = [](const QString&) {
            return ValueResult::Of(Value("own"));
        };
    }

    ServicesFixture fx;
    std::shared_ptr<ScriptedBO> bo = std::make_shared<ScriptedBO>();
    std::shared_ptr<ScriptedDataObject> object = std::make_shared<ScriptedDataObject>(
        "O0201500", PropertiesConvention({"MyFirmAccounts"}, {"Debts1", "Account"}));
};

TEST_F(PropertiesConventionTest, PlainQueryAsksGetNameWithNone) {
    const ValueResult r = object->Properties("MyFirmAccounts", "ignored");
    ASSERT_EQ(bo->calls.size(), 1);
    EXPECT_EQ(bo->calls[0].method, "GetMyFirmAccounts");
    EXPECT_EQ(bo->calls[0].parameters, "None");
    EXPECT_EQ(r.Code, 0);
    EXPECT_EQ(r.Value.toString(), "accounts");
}

TEST_F(PropertiesConventionTest, ParametrisedQueryPassesParametersUnchanged) {
    const ValueResult r = object->Properties("Debts1", "'0','2410','2024.03.15'");
    ASSERT_EQ(bo->calls.size(), 1);
    EXPECT_EQ(bo->calls[0].method, "GetDebts1");
    EXPECT_EQ(bo->calls[0].parameters, "'0','2410','2024.03.15'");
    EXPECT_EQ(r.Value.toString(), "'0','2410','2024.03.15'");
}

TEST_F(PropertiesConventionTest, NameServedByTheClassNeverReachesTheBusinessObject) {
    const ValueResult r = object->Properties("CurrencyList", "2024.03.15");
    EXPECT_TRUE(bo->calls.isEmpty());
    EXPECT_EQ(r.Value.toString(), "own");
}

TEST_F(PropertiesConventionTest, AnyOtherNameGoesToTheBusinessObjectAsItStands) {
    const ValueResult r = object->Properties("DO0201500_GetOrvoObject", "'O0201500'");
    ASSERT_EQ(bo->calls.size(), 1);
    EXPECT_EQ(bo->calls[0].method, "DO0201500_GetOrvoObject");
    EXPECT_EQ(bo->calls[0].parameters, "'O0201500'");
    EXPECT_EQ(r.Value.toString(), "direct");
}

TEST_F(PropertiesConventionTest, NonZeroCodeShowsWarningWithTextAndReturnsNoValue) {
    const ValueResult r = object->Properties("Account", "'9999'");
    EXPECT_EQ(r.Code, 5);
    EXPECT_EQ(r.Text, "Sąskaita nerasta");
    EXPECT_TRUE(r.Value.isNull());
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].kind, MessageKind::Warning);
    EXPECT_EQ(fx.messages->shown[0].text, "Sąskaita nerasta");
    EXPECT_EQ(fx.messages->shown[0].title, "Orvo Apskaita");
}

TEST_F(PropertiesConventionTest, SuccessShowsNothing) {
    object->Properties("MyFirmAccounts", "");
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST(PropertiesConvention, ClassifiesNames) {
    const PropertiesConvention rules({"TelebankList"}, {"Parent"});
    EXPECT_EQ(rules.Classify("TelebankList"), PropertiesConvention::Path::Plain);
    EXPECT_EQ(rules.Classify("Parent"), PropertiesConvention::Path::Parametrised);
    EXPECT_EQ(rules.Classify("parent"), PropertiesConvention::Path::Direct);
    EXPECT_EQ(rules.MethodFor("Parent"), "GetParent");
    EXPECT_EQ(rules.MethodFor("DO0201500_CheckAdvance"), "DO0201500_CheckAdvance");
    EXPECT_EQ(rules.ParameterTextFor("TelebankList", "x"), "None");
    EXPECT_EQ(rules.ParameterTextFor("Parent", "x"), "x");
}
