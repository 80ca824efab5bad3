#include "frame/catalogue_rights_forms.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

namespace {

std::shared_ptr<ScriptedDataObject> operationObject(const Value& oidr, const Value& foidr,
                                                    qint32 group = 17) {
    auto uio = std::make_shared<ScriptedDataObject>("O0201500");
    uio->Core().SetRsFields(MakeOperation(oidr, foidr, group, QDate(2024, 3, 1)));
    uio->SetOIDR(oidr.toString());
    return uio;
}

std::shared_ptr<TestForm> asTestForm(const OrvoFormPtr& form) {
    return std::dynamic_pointer_cast<TestForm>(form);
}

} // namespace

TEST(RightsFor, AsksInTheHostsOrderAndKeepsTheRecordsOrder) {
    ServicesFixture fx;
    fx.rights->answers = {
        {"read", true}, {"edit", false}, {"delete", true}, {"create", false}, {"fifth", true}};
    const RightsRecord r = Catalogue::RightsFor("CBROperRights17");
    EXPECT_EQ(fx.rights->calls, (QStringList{"read:CBROperRights17:", "edit:CBROperRights17:",
                                             "delete:CBROperRights17:", "create:CBROperRights17:",
                                             "fifth:CBROperRights17:"}));
    EXPECT_EQ(r.Read, -1);
    EXPECT_EQ(r.Delete, -1);
    EXPECT_EQ(r.Edit, 0);
    EXPECT_EQ(r.Create, 0);
    EXPECT_EQ(r.Fifth, -1);
}

TEST(RightsFor, EditAnswerLandsInEditAndDeleteInDelete) {
    ServicesFixture fx;
    fx.rights->answers = {
        {"read", false}, {"edit", true}, {"delete", false}, {"create", true}, {"fifth", false}};
    const RightsRecord r = Catalogue::RightsFor("CTemplatesLock");
    EXPECT_EQ(r.Read, 0);
    EXPECT_EQ(r.Edit, -1);
    EXPECT_EQ(r.Delete, 0);
    EXPECT_EQ(r.Create, -1);
    EXPECT_EQ(r.Fifth, 0);
}

TEST(RightsFor, WithoutRightsServiceNothingIsGranted) {
    ClearOrvoS();
    const RightsRecord r = Catalogue::RightsFor("CBROperRights");
    EXPECT_EQ(r.Read, 0);
    EXPECT_EQ(r.Edit, 0);
    EXPECT_EQ(r.Delete, 0);
    EXPECT_EQ(r.Create, 0);
    EXPECT_EQ(r.Fifth, 0);
}

TEST(NewFormForKind, NamesTheFormByTheTable) {
    EXPECT_EQ(Catalogue::FormNameForKind("O0201501"), "frmTransfer");
    EXPECT_EQ(Catalogue::FormNameForKind("O0201502"), "frmTransfer");
    EXPECT_EQ(Catalogue::FormNameForKind("O0201503"), "frmCashPayment");
    EXPECT_EQ(Catalogue::FormNameForKind("O0201504"), "frmCashPayment");
    EXPECT_EQ(Catalogue::FormNameForKind("O0201505"), "frmAdvanceReport");
    EXPECT_EQ(Catalogue::FormNameForKind("O0201506"), "frmAccountsClosing");
    EXPECT_EQ(Catalogue::FormNameForKind("O0201500"), "frmBROper");
    EXPECT_EQ(Catalogue::FormNameForKind("O0300100"), "frmBROper");
    EXPECT_EQ(Catalogue::FormNameForKind(""), "frmBROper");
}

TEST(NewFormForKind, MakesTheFormAndDoesNothingElse) {
    ServicesFixture fx;
    auto form = asTestForm(Catalogue::NewFormForKind("O0201504"));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->FormName(), "frmCashPayment");
    EXPECT_TRUE(form->steps.isEmpty());
    EXPECT_EQ(form->GetOrvoObjectUIO(), nullptr);
}

TEST(NewFormForKind, NoRegisteredFormGivesNull) {
    ServicesFixture fx;
    fx.forms->Unregister("frmAdvanceReport");
    EXPECT_EQ(Catalogue::NewFormForKind("O0201505"), nullptr);
}

TEST(OpenOperationForm, FetchesTheObjectAndBindsTheEditorOfItsDocument) {
    ServicesFixture fx;
    auto op = operationObject(Value("O0201500123"), Value("O0201504123"));
    fx.objects->byReference["O0201500123"] = op;
    OrvoObjectUIOPtr uio;
    auto form = asTestForm(Catalogue::OpenOperationForm("O0201500123", uio));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(fx.objects->uioRequests, QStringList{"O0201500123"});
    EXPECT_EQ(uio, op);
    EXPECT_EQ(form->FormName(), "frmCashPayment");
    EXPECT_EQ(form->GetOrvoObjectUIO(), op);
    EXPECT_EQ(form->steps, (QStringList{"OrvoObjectUIO", "ClickedParameters"}));
    EXPECT_EQ(form->ClickedParameters(), "");
    EXPECT_EQ(fx.rights->calls.first(), "read:CBROperRights17:");
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST(OpenOperationForm, GivenObjectIsUsedWithoutFetching) {
    ServicesFixture fx;
    OrvoObjectUIOPtr uio = operationObject(Value("O0201500123"), Value("O0201500123"));
    auto form = asTestForm(Catalogue::OpenOperationForm("O0201500123", uio));
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(fx.objects->uioRequests.isEmpty());
    EXPECT_EQ(form->FormName(), "frmBROper");
    EXPECT_EQ(form->steps, QStringList{"OrvoObjectUIO"});
}

TEST(OpenOperationForm, ReferenceShowsTheReferenceFormOnlyForKindsOfTheTable) {
    const QList<QPair<QString, QString>> table = {
        {"O0201501", "frmTransfer"},      {"O0201502", "frmTransfer"},
        {"O0201503", "frmCashPayment"},   {"O0201504", "frmCashPayment"},
        {"O0201505", "frmAdvanceReport"}, {"O0201506", "frmAccountsClosing"},
        {"O0201500", "frmBROper"},        {"O0300100", "frmBROper"},
        {"O0400100", "frmBROper"},
    };
    for (const auto& [kind, name] : table) {
        ServicesFixture fx;
        OrvoObjectUIOPtr uio = operationObject(Value("O0201500123"), Value(kind + "55"));
        const OrvoFormPtr form = Catalogue::OpenOperationForm("O0201500123", uio);
        ASSERT_NE(form, nullptr) << kind.toStdString();
        EXPECT_EQ(form->FormName(), name) << kind.toStdString();
        EXPECT_TRUE(fx.objects->shown.isEmpty());
    }
}

TEST(OpenOperationForm, AnyOtherKindIsTheHostsToShowAndNoFormComes) {
    ServicesFixture fx;
    int made = 0;
    fx.forms->Register("frmBROper", [&made] {
        ++made;
        return std::make_shared<TestForm>("frmBROper");
    });
    OrvoObjectUIOPtr uio = operationObject(Value("O0201500123"), Value("O1000100042"));
    EXPECT_EQ(Catalogue::OpenOperationForm("O0201500123", uio), nullptr);
    EXPECT_EQ(fx.objects->shown, QStringList{"O1000100042"});
    EXPECT_EQ(made, 0);
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST(OpenOperationForm, DeletedOperationShowsErrorAndDropsTheObject) {
    ServicesFixture fx;
    OrvoObjectUIOPtr uio = operationObject(Value(), Value("O0201500123"));
    EXPECT_EQ(Catalogue::OpenOperationForm("O0201500123", uio), nullptr);
    EXPECT_EQ(uio, nullptr);
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].kind, MessageKind::Error);
    EXPECT_EQ(fx.messages->shown[0].text, "Operacija panaikinta !");
    EXPECT_EQ(fx.messages->shown[0].title, "Orvo Apskaita");
}

TEST(OpenOperationForm, MissingDocumentReferenceCountsAsDeleted) {
    ServicesFixture fx;
    OrvoObjectUIOPtr uio = operationObject(Value("O0201500123"), Value());
    EXPECT_EQ(Catalogue::OpenOperationForm("O0201500123", uio), nullptr);
    EXPECT_EQ(uio, nullptr);
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].text, "Operacija panaikinta !");
}

TEST(OpenOperationForm, ObjectThatCannotBeFetchedIsDeletedWithoutAskingRights) {
    ServicesFixture fx;
    OrvoObjectUIOPtr uio;
    EXPECT_EQ(Catalogue::OpenOperationForm("O0201500404", uio), nullptr);
    EXPECT_TRUE(fx.rights->calls.isEmpty());
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_EQ(fx.messages->shown[0].text, "Operacija panaikinta !");
}

TEST(OpenOperationForm, WithoutReadRightNothingHappensAndNothingIsSaid) {
    ServicesFixture fx;
    fx.rights->answers = {{"read", false}};
    OrvoObjectUIOPtr uio = operationObject(Value("O0201500123"), Value("O0201500123"), 4);
    EXPECT_EQ(Catalogue::OpenOperationForm("O0201500123", uio), nullptr);
    EXPECT_NE(uio, nullptr);
    EXPECT_EQ(fx.rights->calls.first(), "read:CBROperRights4:");
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST(OpenOperationForm, RightIsCheckedBeforeTheDeletedMessage) {
    ServicesFixture fx;
    fx.rights->answers = {{"read", false}};
    OrvoObjectUIOPtr uio = operationObject(Value(), Value());
    EXPECT_EQ(Catalogue::OpenOperationForm("O0201500123", uio), nullptr);
    EXPECT_TRUE(fx.messages->shown.isEmpty());
}

TEST(OpenOperationForm, MissingEditorIsRefusedClearly) {
    ServicesFixture fx;
    fx.forms->Unregister("frmBROper");
    OrvoObjectUIOPtr uio = operationObject(Value("O0201500123"), Value("O0201500123"));
    EXPECT_EQ(Catalogue::OpenOperationForm("O0201500123", uio), nullptr);
    ASSERT_EQ(fx.messages->shown.size(), 1);
    EXPECT_TRUE(fx.messages->shown[0].text.contains("frmBROper"));
}

TEST(GetUIOByOIDR, AsksTheObjectsService) {
    ServicesFixture fx;
    auto op = operationObject(Value("O0201500123"), Value("O0201500123"));
    fx.objects->byReference["O0201500123"] = op;
    EXPECT_EQ(Catalogue::GetUIOByOIDR("O0201500123"), op);
    EXPECT_EQ(Catalogue::GetUIOByOIDR(""), nullptr);
    EXPECT_EQ(fx.objects->uioRequests, QStringList{"O0201500123"});
}
