// The queries of the operation object: the three paths to the business object, the lists
// it keeps for its life, and the form it gives the host.
#include "host_stand_ins.h"
#include "test_forms.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class OperationPropertiesTest : public OperationFixture {
protected:
    BOResult Answer(const QString&, const Value&) {
        return BOResult::Of(Value(Table({F("X")}, {{1}})));
    }
    void Answering(const char* method) {
        bo->handlers.insert(QString::fromLatin1(method),
                            [this](const QString& p, const Value& d) { return Answer(p, d); });
    }
};

} // namespace

TEST_F(OperationPropertiesTest, PlainQueryGoesAsGetNameWithNone) {
    Answering("GetMyFirmAccounts");
    const ValueResult r = op->Properties("MyFirmAccounts", "ignored");
    EXPECT_EQ(r.Code, 0);
    EXPECT_TRUE(r.Value.toRecordset());
    EXPECT_EQ(bo->calls.last().method, "GetMyFirmAccounts");
    EXPECT_EQ(bo->calls.last().parameters, "None");
}

TEST_F(OperationPropertiesTest, EveryPlainQueryOfTheOperationIsOnItsList) {
    EXPECT_EQ(UIO0201500::PlainQueries(),
              QStringList({"MyFirmAccounts", "SelectParameters", "TelebankList", "FirmsAndUsers"}));
    // The component's 36, and the change protocol the protocol window lists.
    EXPECT_EQ(UIO0201500::ParametrisedQueries().size(), 37);
    EXPECT_TRUE(UIO0201500::ParametrisedQueries().contains("BROperLog"));
    EXPECT_TRUE(UIO0201500::ParametrisedQueries().contains("TemplateAccAndAddr"));
    EXPECT_TRUE(UIO0201500::ParametrisedQueries().contains("Debts1New"));
}

TEST_F(OperationPropertiesTest, ParametrisedQueryPassesItsParametersOn) {
    Answering("GetDebts1");
    op->Properties("Debts1", "'0','2410','2024.03.15','O000010012',1");
    EXPECT_EQ(bo->calls.last().method, "GetDebts1");
    EXPECT_EQ(bo->calls.last().parameters, "'0','2410','2024.03.15','O000010012',1");
}

TEST_F(OperationPropertiesTest, AnyOtherNameGoesToTheBusinessObjectAsItStands) {
    Answering("DO0201500_GetImportedBROpers");
    op->Properties("DO0201500_GetImportedBROpers", "'x'");
    EXPECT_EQ(bo->calls.last().method, "DO0201500_GetImportedBROpers");
    EXPECT_EQ(bo->calls.last().parameters, "'x'");
}

TEST_F(OperationPropertiesTest, RefusedQueryShowsAWarningAndGivesNoValue) {
    const ValueResult r = op->Properties("Transfers", "'1'");
    EXPECT_EQ(r.Code, 999);
    EXPECT_TRUE(r.Value.isNull());
    ASSERT_EQ(messages->boxes.size(), 1);
    EXPECT_EQ(messages->boxes.first().kind, MessageKind::Warning);
    EXPECT_EQ(messages->boxes.first().text, "Nežinomas metodas GetTransfers");
}

TEST_F(OperationPropertiesTest, CurrencyListOfAnEmptyDateAsksFor1990AndIsReadEveryTime) {
    bo->handlers.insert("GetCurrencyList", [](const QString&, const Value&) {
        return BOResult::Of(
            Value(Table({F("Code"), F("BaseCurrency"), F("Rate"), F("CurrencyRate")},
                        {{"EUR", 1, 1.0, 1.0}, {"USD", 0, 0.92, 1.087}})));
    });
    EXPECT_EQ(op->Properties("CurrencyList", "").Code, 0);
    EXPECT_EQ(bo->calls.last().parameters, "'1990.01.01'");
    op->Properties("CurrencyList", "2024.03.15");
    EXPECT_EQ(bo->calls.last().parameters, "'2024.03.15'");
    EXPECT_EQ(bo->CallsTo("GetCurrencyList"), 2);
    ASSERT_TRUE(op->CurrencyCache());
    EXPECT_EQ(op->CurrencyCache()->RecordCount(), 2);
}

TEST_F(OperationPropertiesTest, NoCurrencyInTheBooksIsRefusedAndNothingIsKept) {
    bo->handlers.insert("GetCurrencyList", [](const QString&, const Value&) {
        return BOResult::Of(Value(Table({F("Code")}, {})));
    });
    const ValueResult r = op->Properties("CurrencyList", "");
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "No any currency in DB...");
    EXPECT_EQ(messages->Count(MessageKind::Warning), 1);
    EXPECT_FALSE(op->CurrencyCache());
}

TEST_F(OperationPropertiesTest, AddresseeListIsReadOnceAndKept) {
    Answering("GetAddresseeList");
    op->Properties("AddresseeList", "");
    op->Properties("AddresseeList", "");
    EXPECT_EQ(bo->CallsTo("GetAddresseeList"), 1);
    EXPECT_EQ(bo->calls.last().parameters, "None");
    EXPECT_TRUE(op->AddresseeCache());
}

TEST_F(OperationPropertiesTest, AccountListMapsAccountToNameAndIsBuiltOnce) {
    const ValueResult r = op->Properties("AccountList", "");
    const DictionaryPtr map = r.Value.toDictionary();
    ASSERT_TRUE(map);
    EXPECT_EQ(map->Count(), 4);
    EXPECT_EQ(map->Item("2710").toString(), "Kasa");
    op->Properties("AccountList", "");
    EXPECT_EQ(bo->CallsTo("GetAccountList"), 1);
}

TEST_F(OperationPropertiesTest, GetObjectFormOfANewCashOrderMakesItsEditorAndTakesTheGroup) {
    auto cash = UIO0201500::Create("O0201504");
    cash->Core().SetBO(bo);
    ASSERT_TRUE(cash->Read().ok());
    std::shared_ptr<PlainForm> made;
    forms->Register("frmCashPayment", [&made] {
        made = std::make_shared<PlainForm>("frmCashPayment");
        return made;
    });
    const ValueResult r = cash->Properties("GetObjectForm", "17;Šablonas@|@5");
    ASSERT_EQ(r.Code, 0);
    ASSERT_TRUE(made);
    EXPECT_EQ(r.Value.toObject(), made);
    EXPECT_EQ(made->GetOrvoObjectUIO(), cash);
    EXPECT_EQ(made->ClickedParameters(), "Šablonas;5");
    EXPECT_EQ(cash->Field("BROperGroupID").toInt32(), 17);
    EXPECT_EQ(cash->OType(), "O0201504");
}

TEST_F(OperationPropertiesTest, GetObjectFormWithoutTheEditorIsRefusedClearly) {
    const ValueResult r = op->Properties("GetObjectForm", "17;");
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Nepavyko atidaryti lango frmBROper!");
    EXPECT_EQ(messages->Count(MessageKind::Warning), 1);
}

TEST_F(OperationPropertiesTest, GetObjectFormOfAStoredOperationOpensItsDocumentsEditor) {
    forms->Register("frmBROper", [] { return std::make_shared<PlainForm>("frmBROper"); });
    op->Core().SetOIDR("O0201500123");
    op->SetField("OIDR", "O0201500123");
    op->SetField("FOIDR", "O0201500123");
    op->SetField("BROperGroupID", 3);
    const ValueResult r = op->Properties("GetObjectForm", "3;x");
    const auto form = std::dynamic_pointer_cast<OrvoForm>(r.Value.toObject());
    ASSERT_TRUE(form);
    EXPECT_EQ(form->FormName(), "frmBROper");
    EXPECT_EQ(form->GetOrvoObjectUIO(), op);
    EXPECT_TRUE(form->ClickedParameters().isEmpty());
}
