// The commands that open a window on the operation: the entry card, the comment
// templates, the editor and the protocol; and their refusal where a face has no window.
#include "host_stand_ins.h"
#include "test_forms.h"

#include "operations/window_commands.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class WindowCommandsTest : public OperationFixture {
protected:
    std::shared_ptr<ScriptedEntryCard> RegisterCard() {
        auto card = std::make_shared<ScriptedEntryCard>();
        forms->Register("frmBROperRecord", [card] { return card; });
        return card;
    }
};

} // namespace

TEST_F(WindowCommandsTest, ShowBRWithoutParametersAnswersTrueWithItsText) {
    const ValueResult r = op->Methods("ShowBR", {});
    EXPECT_EQ(r.Code, 0);
    EXPECT_TRUE(r.Value.toBool());
    EXPECT_EQ(r.Text, "ShowBR: nėra parametrų !");
}

TEST_F(WindowCommandsTest, ShowBROfAnUnknownGuidSaysThereIsNoEntry) {
    RegisterCard();
    const ValueResult r = op->Methods("ShowBR", {"{NERA}"});
    EXPECT_EQ(r.Text, "ShowBR: nėra įrašo !");
    EXPECT_TRUE(forms->asked.isEmpty());
    EXPECT_TRUE(Entries()->Filter().isEmpty());
}

TEST_F(WindowCommandsTest, ShowBRHandsTheCardItsEntryAndReadsTheFlagBack) {
    const QString guid = AddBR({"2710", "2410", 10.0, ValueArray{}}).Value.toString();
    auto card = RegisterCard();
    card->flag = 1;
    const ValueResult r = op->Methods("ShowBR", {guid});
    EXPECT_EQ(r.Code, 0);
    EXPECT_EQ(r.Value.kind(), Value::Kind::Int16);
    EXPECT_EQ(r.Value.toInt16(), 1);
    EXPECT_TRUE(card->shownModal);
    EXPECT_EQ(card->guid, guid);
    EXPECT_EQ(card->entries, Entries());
    EXPECT_EQ(card->GetOrvoObjectUIO(), op);
    EXPECT_FALSE(card->restricted);
    EXPECT_TRUE(card->currenciesEditable);
    EXPECT_EQ(card->tab, 0);
    EXPECT_TRUE(Entries()->Filter().isEmpty());
}

TEST_F(WindowCommandsTest, RestrictedCardOfAPaymentOrderOffersTheDocumentKinds) {
    op->SetField("FOIDR", "O020150142");
    const QString guid = AddBR({"2710", "2410", 10.0, ValueArray{}}).Value.toString();
    auto card = RegisterCard();
    op->Methods("ShowBR", {guid, true, false, qint16(2)});
    EXPECT_TRUE(card->restricted);
    EXPECT_EQ(card->kinds, "O0201500O0000500O0000300O0000100O0001402O0001401");
    EXPECT_FALSE(card->currenciesEditable);
    EXPECT_EQ(card->tab, 2);
}

TEST_F(WindowCommandsTest, RestrictedCardOfAPlainOperationOffersNoKinds) {
    EXPECT_EQ(WindowCommands::AllowedKindsFor("O020150042"), "");
    EXPECT_EQ(WindowCommands::AllowedKindsFor("O020150"), "");
    EXPECT_EQ(WindowCommands::AllowedKindsFor("O0201505"),
              "O0201500O0000500O0000300O0000100O0001402O0001401");
}

TEST_F(WindowCommandsTest, KindsGivenAsTextRestrictTheCardUnlessTheOperationIsItsOwnDocument) {
    op->SetField("OIDR", "O020150042");
    op->SetField("FOIDR", "O020150342");
    const QString guid = AddBR({"2710", "2410", 10.0, ValueArray{}}).Value.toString();
    auto card = RegisterCard();
    op->Methods("ShowBR", {guid, "O0000100"});
    EXPECT_TRUE(card->restricted);
    EXPECT_EQ(card->kinds, "O0000100");
    op->SetField("FOIDR", "O020150042");
    op->Methods("ShowBR", {guid, "O0000100"});
    EXPECT_FALSE(card->restricted);
}

TEST_F(WindowCommandsTest, ShowBRWithoutTheCardIsRefusedWith777) {
    const QString guid = AddBR({"2710", "2410", 10.0, ValueArray{}}).Value.toString();
    const ValueResult r = op->Methods("ShowBR", {guid});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Nepavyko atidaryti lango frmBROperRecord!");
    EXPECT_EQ(messages->Count(MessageKind::Warning), 1);
    EXPECT_EQ(forms->asked, QStringList({"frmBROperRecord"}));
}

TEST_F(WindowCommandsTest, GetCommentListGivesTheChosenComment) {
    auto list = std::make_shared<ScriptedCommentList>();
    list->comment = "Avansinė apyskaita";
    forms->Register("frmCommentList", [list] { return list; });
    const ValueResult r = op->Methods("GetCommentList", {"Ava"});
    EXPECT_EQ(r.Value.toString(), "Avansinė apyskaita");
    EXPECT_EQ(list->initialText, "Ava");
    EXPECT_TRUE(list->shownModal);
    list->cancelled = true;
    EXPECT_TRUE(op->Methods("GetCommentList", {"Ava"}).Value.isNull());
}

TEST_F(WindowCommandsTest, GetCommentListWithoutTheWindowIsRefused) {
    EXPECT_EQ(op->Methods("GetCommentList", {""}).Text, "Nepavyko atidaryti lango frmCommentList!");
}

TEST_F(WindowCommandsTest, ShowBROperOpensTheEditorModallyOnThisObject) {
    auto editor = std::make_shared<ScriptedEditor>();
    editor->returnValue = Value(true);
    forms->Register("frmBROper", [editor] { return editor; });
    const ValueResult r = op->Methods("ShowBROper", {});
    EXPECT_TRUE(r.Value.toBool());
    EXPECT_TRUE(editor->boolModalForm());
    EXPECT_TRUE(editor->shownModal);
    EXPECT_EQ(editor->GetOrvoObjectUIO(), op);
}

TEST_F(WindowCommandsTest, ShowProtocolShowsTheFourStampsEmptyWhereMissing) {
    auto protocol = std::make_shared<ScriptedProtocol>();
    forms->Register("frmProtocol", [protocol] { return protocol; });
    op->SetField("CreatedByUserName", "Ona Buhalterė");
    op->SetField("CreationDate", QDateTime(QDate(2024, 3, 15), QTime(9, 30)));
    op->Methods("ShowProtocol", {});
    EXPECT_EQ(protocol->texts, QStringList({"Ona Buhalterė", "2024-03-15 09:30:00", "", ""}));
    EXPECT_TRUE(protocol->shownModal);
}
