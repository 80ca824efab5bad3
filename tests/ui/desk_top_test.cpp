// The desktop of open forms: a click that answers with a form (Action 1) shows it there,
// "Padėti ant darbo stalo" keeps a form through the desktop service, and a form that
// nobody registered is refused in Lithuanian through the message boxes.
#include "desktop_fixture.h"

#include "accounts/account_plan_navigator.h"
#include "accounts/template_navigator.h"
#include "frame/orvo_object_uio.h"
#include "ui/shell/desk_top.h"
#include "ui/shell/desktop_forms.h"
#include "ui/shell/widget_form.h"

#include <QLabel>
#include <QMdiSubWindow>

namespace orvo::ui::testing {

namespace {

// A form made of a real widget, standing in for the editors that later work brings.
class LabelForm : public WidgetForm {
public:
    explicit LabelForm(const QString& name) : WidgetForm(name) {}

protected:
    QWidget* BuildWidget() override {
        auto* label = new QLabel(QStringLiteral("Langas %1").arg(FormName()));
        label->setWindowTitle(FormName());
        return label;
    }
};

void answerEveryBoxWithOK() {
    DialogDriver::Set(
        [](QDialog& dialog) { DialogDriver::Click(dialog, QStringLiteral("cmdOK")); });
}

} // namespace

TEST_F(DesktopTest, ClickThatGivesAFormShowsItOnTheDesktopBoundToItsObject) {
    session_->Forms()->Register(QStringLiteral("frmAccountPlan"), []() {
        return std::make_shared<LabelForm>(QStringLiteral("frmAccountPlan"));
    });
    QTreeWidgetItem* chart = Node(QStringLiteral("Sąskaitų planas"));
    const ClickResult result = Tree().Click(chart, UI0200400::kNewClass, QStringLiteral("1"));
    ASSERT_EQ(result.Action, ClickResult::ShowForm);
    const QList<OrvoFormPtr> open = window_->Desk()->Forms();
    ASSERT_EQ(open.size(), 1);
    EXPECT_EQ(open.first()->FormName(), QStringLiteral("frmAccountPlan"));
    ASSERT_TRUE(open.first()->GetOrvoObjectUIO());
    // The chart's new class: its clicked parameters name the node it was made under.
    EXPECT_EQ(open.first()->ClickedParameters(), QStringLiteral("NO0200400"));
    QMdiSubWindow* window = window_->Desk()->WindowOf(open.first().get());
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->widget()->objectName(), QStringLiteral("frmAccountPlan"));
}

TEST_F(DesktopTest, ClickWhoseFormIsNotRegisteredIsRefusedInLithuanian) {
    answerEveryBoxWithOK();
    QTreeWidgetItem* chart = Node(QStringLiteral("Sąskaitų planas"));
    const ClickResult result = Tree().Click(chart, UI0200400::kNewClass, QStringLiteral("1"));
    EXPECT_EQ(result.Action, ClickResult::Nothing);
    const QList<ShownMessage> shown = window_->Services().Messages->Take();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Error);
    EXPECT_EQ(shown.first().Title, QStringLiteral("Orvo Apskaita"));
    EXPECT_EQ(shown.first().Text, UI0200400::NoFormText(QStringLiteral("frmAccountPlan")));
    EXPECT_TRUE(window_->Desk()->Forms().isEmpty());
}

TEST_F(DesktopTest, OpeningAFormByANameNobodyRegisteredShowsAnErrorAndGivesNothing) {
    answerEveryBoxWithOK();
    EXPECT_EQ(window_->OpenForm(QStringLiteral("frmBROper"), nullptr), nullptr);
    const QList<ShownMessage> shown = window_->Services().Messages->Take();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Error);
    EXPECT_EQ(shown.first().Text, QStringLiteral("Langas „frmBROper“ dar neįdiegtas."));
    // The Forms service itself answers null quietly: its callers refuse in their words.
    EXPECT_EQ(window_->Services().Forms->CreateForm(QStringLiteral("frmBROper")), nullptr);
    EXPECT_TRUE(window_->Services().Messages->Take().isEmpty());
}

TEST_F(DesktopTest, PutOnTheDesktopFromTheTreeShowsTheRowsFormAndKeepsIt) {
    session_->Forms()->Register(QStringLiteral("frmBRTemplate"), []() {
        return std::make_shared<LabelForm>(QStringLiteral("frmBRTemplate"));
    });
    QTreeWidgetItem* templates = Node(QStringLiteral("Finansinių operacijų šablonai"));
    templates->setExpanded(true);
    ASSERT_GT(templates->childCount(), 0);
    QTreeWidgetItem* row = templates->child(0);
    const QString oidr = row->data(0, HostTree::OidRole).toString();
    const ClickResult result = Tree().Click(row, UI0201600::kDesktop, QStringLiteral("2"));
    EXPECT_EQ(result.Action, ClickResult::Nothing);
    const QList<OrvoFormPtr> kept = window_->Services().DeskTopService->Forms();
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(kept.first()->FormName(), QStringLiteral("frmBRTemplate"));
    ASSERT_TRUE(kept.first()->GetOrvoObjectUIO());
    EXPECT_EQ(kept.first()->GetOrvoObjectUIO()->OIDR(), oidr);
    EXPECT_EQ(window_->Desk()->Forms(), kept);
}

TEST_F(DesktopTest, FormPutOnTheDesktopIsKeptUntilTheServiceLetsItGo) {
    auto form = std::make_shared<LabelForm>(QStringLiteral("frmKept"));
    std::weak_ptr<LabelForm> watch = form;
    session_->Services()->DeskTopService()->AddForm(form);
    form.reset();
    ASSERT_FALSE(watch.expired());
    const OrvoFormPtr kept = watch.lock();
    QMdiSubWindow* window = window_->Desk()->WindowOf(kept.get());
    ASSERT_NE(window, nullptr);
    delete window;
    EXPECT_TRUE(window_->Desk()->Forms().isEmpty());
    EXPECT_EQ(window_->Services().DeskTopService->Forms().size(), 1);

    session_->Services()->DeskTopService()->RemoveForm(kept);
    EXPECT_TRUE(window_->Services().DeskTopService->Forms().isEmpty());
}

TEST_F(DesktopTest, PresentingAFormTwiceBringsItsOneWindowForward) {
    auto form = std::make_shared<LabelForm>(QStringLiteral("frmOnce"));
    EXPECT_TRUE(window_->Desk()->Present(form));
    EXPECT_TRUE(window_->Desk()->Present(form));
    EXPECT_EQ(window_->Desk()->subWindowList().size(), 1);
    EXPECT_EQ(window_->Desk()->activeSubWindow(), window_->Desk()->WindowOf(form.get()));
    form->UnloadShowOrvoObject();
    QApplication::processEvents();
    EXPECT_EQ(window_->Desk()->WindowOf(form.get()), nullptr);
}

TEST_F(DesktopTest, ModalFormRunsInADialogAndReturnsWhenClosed) {
    auto form = std::make_shared<LabelForm>(QStringLiteral("frmModal"));
    QString seen;
    DialogDriver::Set([&seen](QDialog& dialog) {
        if (auto* label = dialog.findChild<QLabel*>(QStringLiteral("frmModal")))
            seen = label->text();
        dialog.accept();
    });
    form->Show(true);
    EXPECT_TRUE(form->boolModalForm());
    EXPECT_EQ(seen, QStringLiteral("Langas frmModal"));
    EXPECT_TRUE(window_->Desk()->Forms().isEmpty());
}

} // namespace orvo::ui::testing
