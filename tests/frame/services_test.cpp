#include "frame/form_registry.h"
#include "frame/memory_check_list.h"
#include "frame/memory_combo_control.h"
#include "frame/memory_list_control.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

namespace {

std::shared_ptr<OrvoServices> servicesTitled(const QString& title,
                                             std::shared_ptr<RecordingMessages> messages) {
    auto session = std::make_shared<TestSession>();
    session->constants->title = title;
    auto services = std::make_shared<OrvoServices>();
    services->SetSessionService(session);
    services->SetMessagesService(std::move(messages));
    return services;
}

} // namespace

TEST(OrvoS, FirstCallStoresServicesAndReadsTheTitle) {
    ClearOrvoS();
    auto messages = std::make_shared<RecordingMessages>();
    auto first = servicesTitled("Pirmoji knyga", messages);
    auto second = servicesTitled("Antroji knyga", std::make_shared<RecordingMessages>());
    SetOrvoS(first);
    SetOrvoS(second);
    EXPECT_EQ(OrvoS(), first);
    EXPECT_EQ(MessageTitle(), "Pirmoji knyga");
    ShowWarning("Įspėjimas");
    ASSERT_EQ(messages->shown.size(), 1);
    EXPECT_EQ(messages->shown[0].title, "Pirmoji knyga");
    ClearOrvoS();
}

TEST(OrvoS, NavigatorHandsServicesOverModuleWide) {
    ClearOrvoS();
    auto services = servicesTitled("Orvo Apskaita", std::make_shared<RecordingMessages>());
    auto navigator = std::make_shared<TestNavigator>("O0201500");
    navigator->SetOrvoS(services);
    EXPECT_EQ(OrvoS(), services);
    EXPECT_EQ(navigator->Services(), services);
    ClearOrvoS();
}

TEST(OrvoS, ReplaceSetsWhateverWasThere) {
    ClearOrvoS();
    auto first = servicesTitled("A", std::make_shared<RecordingMessages>());
    auto second = servicesTitled("B", std::make_shared<RecordingMessages>());
    SetOrvoS(first);
    ReplaceOrvoS(second);
    EXPECT_EQ(OrvoS(), second);
    EXPECT_EQ(MessageTitle(), "B");
    ClearOrvoS();
    EXPECT_EQ(OrvoS(), nullptr);
}

TEST(OrvoS, WithoutServicesTheTitleIsTheProductsAndMessagesAreSilent) {
    ClearOrvoS();
    EXPECT_EQ(MessageTitle(), "Orvo Apskaita");
    ShowError("niekas nemato");
    EXPECT_FALSE(AskQuestion("Ar tikrai?"));
}

TEST(Messages, EachKindGoesWithTheSessionTitle) {
    ServicesFixture fx;
    fx.session->constants->title = "Orvo Apskaita";
    ShowError("Klaida!");
    ShowWarning("Dėmesio");
    ShowInformation("Informacija");
    fx.messages->answer = false;
    EXPECT_FALSE(AskQuestion("Ar tikrai norite panaikinti?"));
    fx.messages->answer = true;
    EXPECT_TRUE(AskQuestion("Ar tikrai norite panaikinti?"));
    ASSERT_EQ(fx.messages->shown.size(), 5);
    EXPECT_EQ(fx.messages->shown[0].kind, MessageKind::Error);
    EXPECT_EQ(fx.messages->shown[1].kind, MessageKind::Warning);
    EXPECT_EQ(fx.messages->shown[2].kind, MessageKind::Information);
    EXPECT_EQ(fx.messages->shown[3].kind, MessageKind::Question);
    EXPECT_EQ(fx.messages->shown[4].text, "Ar tikrai norite panaikinti?");
    for (const ShownMessage& m : fx.messages->shown)
        EXPECT_EQ(m.title, "Orvo Apskaita");
}

TEST(FormRegistry, UnknownNameGivesNullAndKnownOneANewFormEachTime) {
    FormRegistry forms;
    EXPECT_EQ(forms.CreateForm("frmBROper"), nullptr);
    forms.Register("frmBROper", [] { return std::make_shared<TestForm>("frmBROper"); });
    OrvoFormPtr a = forms.CreateForm("frmBROper");
    OrvoFormPtr b = forms.CreateForm("frmBROper");
    ASSERT_NE(a, nullptr);
    EXPECT_NE(a, b);
    EXPECT_EQ(a->FormName(), "frmBROper");
    EXPECT_EQ(a->ClassName(), "frmBROper");
    forms.Unregister("frmBROper");
    EXPECT_FALSE(forms.Has("frmBROper"));
}

TEST(OrvoForm, WritableMembersKeepWhatTheOpenerSet) {
    TestForm form("frmCashPayment");
    auto uio = std::make_shared<ScriptedDataObject>("O0201500");
    form.SetBoolModalForm(true);
    form.SetOrvoObjectUIO(uio);
    form.SetClickedParameters("17;x");
    EXPECT_TRUE(form.boolModalForm());
    EXPECT_EQ(form.GetOrvoObjectUIO(), uio);
    EXPECT_EQ(form.ClickedParameters(), "17;x");
    EXPECT_EQ(form.steps, (QStringList{"boolModalForm", "OrvoObjectUIO", "ClickedParameters"}));
}

TEST(MemoryComboControl, ChoosingAnItemMakesItTheText) {
    MemoryComboControl combo;
    combo.AddItem("EUR");
    combo.AddItem("USD");
    combo.SetListIndex(1);
    EXPECT_EQ(combo.Text(), "USD");
    combo.SetText("EUR");
    EXPECT_EQ(combo.ListIndex(), 0);
    combo.SetText("kita");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.Clear();
    EXPECT_TRUE(combo.Items().isEmpty());
    EXPECT_EQ(combo.Text(), "");
}

TEST(MemoryLists, KeepKeysTextsAndTicks) {
    MemoryCheckList checks;
    EXPECT_EQ(checks.AddItem("O0000100", "Įmonė"), 0);
    checks.SetChecked(0, true);
    EXPECT_TRUE(checks.Checked(0));
    EXPECT_FALSE(checks.Checked(5));
    MemoryListControl list;
    list.AddItem("k", "t");
    EXPECT_EQ(list.Key(0), "k");
    EXPECT_EQ(list.Text(0), "t");
    EXPECT_EQ(list.Text(1), "");
}
