// FormDriver on the probe form: every control kind set as a user would, lists read with
// their tags, bold and colours, rows checked, selected and double-clicked, a modal
// window opened by a click and worked by the steps after it, and refusals in Lithuanian.
#include "desktop_fixture.h"
#include "probe_form.h"
#include "ui/automation/form_driver.h"

#include <QApplication>
#include <QJsonArray>

namespace orvo::ui::testing {
namespace {

class FormDriverTest : public ::testing::Test {
protected:
    void SetUp() override {
        App();
        form_ = std::make_shared<ProbeForm>();
        form_->Widget()->show();
        driver_ = std::make_unique<FormDriver>(*form_->Widget());
    }
    void TearDown() override {
        driver_.reset();
        if (form_->HasWidget())
            form_->Widget()->close();
        form_.reset();
    }

    ControlState read(const QString& name) {
        const ReadResult r = driver_->Read(name);
        EXPECT_TRUE(r.ok()) << r.Result.Text.toStdString();
        return r.State;
    }

    std::shared_ptr<ProbeForm> form_;
    std::unique_ptr<FormDriver> driver_;
};

TEST_F(FormDriverTest, TypedTextPassesThroughTheRuleOnLeavingTheBox) {
    const DriveResult r = driver_->SetText(QStringLiteral("txtName"), QStringLiteral("  jonas "));
    ASSERT_TRUE(r.ok()) << r.Result.Text.toStdString();
    EXPECT_EQ(r.Text, QStringLiteral("Jonas"));
    EXPECT_EQ(read(QStringLiteral("txtName")).Text, QStringLiteral("Jonas"));
    // Typing selects everything first, so the old text is replaced, not added to.
    ASSERT_TRUE(driver_->SetText(QStringLiteral("txtName"), QStringLiteral("ąžuolas")).ok());
    EXPECT_EQ(read(QStringLiteral("txtName")).Text, QStringLiteral("Ąžuolas"));
}

TEST_F(FormDriverTest, EmptyTextClearsTheBox) {
    ASSERT_TRUE(driver_->SetText(QStringLiteral("txtName"), QStringLiteral("Petras")).ok());
    ASSERT_TRUE(driver_->SetText(QStringLiteral("txtName"), QString()).ok());
    EXPECT_EQ(read(QStringLiteral("txtName")).Text, QString());
}

TEST_F(FormDriverTest, TextEditTakesSeveralLinesAndSpinBoxTakesANumber) {
    ASSERT_TRUE(
        driver_->SetText(QStringLiteral("txtComment"), QStringLiteral("Pirma eilutė\nantra")).ok());
    EXPECT_EQ(read(QStringLiteral("txtComment")).Text, QStringLiteral("Pirma eilutė\nantra"));
    ASSERT_TRUE(driver_->SetText(QStringLiteral("txtCount"), QStringLiteral("42")).ok());
    EXPECT_EQ(form_->Widget()->findChild<QSpinBox*>(QStringLiteral("txtCount"))->value(), 42);
    // The spin box keeps only what its range allows: letters are not typed into it.
    ASSERT_TRUE(driver_->SetText(QStringLiteral("txtCount"), QStringLiteral("7x")).ok());
    EXPECT_EQ(form_->Widget()->findChild<QSpinBox*>(QStringLiteral("txtCount"))->value(), 7);
}

TEST_F(FormDriverTest, CheckBoxIsCheckedAndClearedAndOptionButtonsExcludeEachOther) {
    ASSERT_TRUE(driver_->SetChecked(QStringLiteral("chkActive"), true).ok());
    EXPECT_EQ(read(QStringLiteral("chkActive")).Checked, std::optional<bool>(true));
    ASSERT_TRUE(driver_->SetChecked(QStringLiteral("chkActive"), false).ok());
    EXPECT_EQ(read(QStringLiteral("chkActive")).Checked, std::optional<bool>(false));

    ASSERT_TRUE(driver_->SetChecked(QStringLiteral("optCredit"), true).ok());
    EXPECT_EQ(read(QStringLiteral("optCredit")).Checked, std::optional<bool>(true));
    EXPECT_EQ(read(QStringLiteral("optDebit")).Checked, std::optional<bool>(false));
    const DriveResult off = driver_->SetChecked(QStringLiteral("optCredit"), false);
    EXPECT_FALSE(off.ok());
    EXPECT_EQ(off.Result.Text, QStringLiteral("Parinkties „optCredit“ formoje „frmProbe“ nuimti "
                                              "negalima: pasirinkite kitą parinktį."));
}

TEST_F(FormDriverTest, ComboItemIsChosenByTextOrIndexAsAUserChoice) {
    ASSERT_TRUE(driver_->ChooseItem(QStringLiteral("cmbKind"), QStringLiteral("Išlaidos")).ok());
    // The form hears the choice through `activated`, as from a user.
    EXPECT_EQ(read(QStringLiteral("lblKind")).Text, QStringLiteral("Išlaidos"));
    ASSERT_TRUE(driver_->ChooseIndex(QStringLiteral("cmbKind"), 2).ok());
    const ControlState combo = read(QStringLiteral("cmbKind"));
    EXPECT_EQ(combo.Text, QStringLiteral("Perkėlimas"));
    EXPECT_EQ(combo.Index, 2);
    EXPECT_EQ(combo.Items.size(), 3);
    EXPECT_EQ(read(QStringLiteral("lblKind")).Text, QStringLiteral("Perkėlimas"));

    const DriveResult missing =
        driver_->ChooseItem(QStringLiteral("cmbKind"), QStringLiteral("Nėra"));
    EXPECT_EQ(missing.Result.Text,
              QStringLiteral("Sąraše „cmbKind“ formoje „frmProbe“ nėra punkto „Nėra“."));
    EXPECT_FALSE(driver_->ChooseIndex(QStringLiteral("cmbKind"), 3).ok());
}

TEST_F(FormDriverTest, DateEditTakesADate) {
    ASSERT_TRUE(driver_->SetDate(QStringLiteral("dtpDate"), QDate(2024, 3, 15)).ok());
    const ControlState date = read(QStringLiteral("dtpDate"));
    EXPECT_EQ(date.Date, QDate(2024, 3, 15));
    EXPECT_EQ(date.Text, QStringLiteral("2024.03.15"));
    // Set chooses by the kind of control: a text into a date edit is a date.
    ASSERT_TRUE(driver_->Set(QStringLiteral("dtpDate"), QStringLiteral("2024-02-29")).ok());
    EXPECT_EQ(read(QStringLiteral("dtpDate")).Date, QDate(2024, 2, 29));
    EXPECT_FALSE(driver_->Set(QStringLiteral("dtpDate"), QStringLiteral("29.02.2024")).ok());
}

TEST_F(FormDriverTest, SetPicksTheSetterByTheKindOfControl) {
    ASSERT_TRUE(driver_->Set(QStringLiteral("chkActive"), true).ok());
    ASSERT_TRUE(driver_->Set(QStringLiteral("cmbKind"), 1).ok());
    ASSERT_TRUE(driver_->Set(QStringLiteral("txtName"), QStringLiteral("ona")).ok());
    EXPECT_EQ(read(QStringLiteral("chkActive")).Checked, std::optional<bool>(true));
    EXPECT_EQ(read(QStringLiteral("cmbKind")).Text, QStringLiteral("Išlaidos"));
    EXPECT_EQ(read(QStringLiteral("txtName")).Text, QStringLiteral("Ona"));
    EXPECT_FALSE(driver_->Set(QStringLiteral("chkActive"), QStringLiteral("taip")).ok());
}

TEST_F(FormDriverTest, ActionIsTriggeredByItsName) {
    ASSERT_TRUE(driver_->SetText(QStringLiteral("txtName"), QStringLiteral("Jonas")).ok());
    const ControlState action = read(QStringLiteral("mnuClear"));
    EXPECT_EQ(action.Kind, QStringLiteral("QAction"));
    EXPECT_EQ(action.Text, QStringLiteral("Išvalyti"));
    ASSERT_TRUE(driver_->Click(QStringLiteral("mnuClear")).ok());
    EXPECT_EQ(read(QStringLiteral("txtName")).Text, QString());
}

TEST_F(FormDriverTest, ListReadsHeadersCellsTagsBoldColourAndChecks) {
    const ControlState list = read(QStringLiteral("lvwRows"));
    ASSERT_TRUE(list.IsList);
    EXPECT_EQ(list.Headers, QStringList({QStringLiteral("Sąskaita"), QStringLiteral("Suma")}));
    ASSERT_EQ(list.Rows.size(), 3);
    EXPECT_EQ(list.Rows[0].Text(0), QStringLiteral("2410"));
    EXPECT_EQ(list.Rows[0].Text(1), QStringLiteral("100,00"));
    EXPECT_EQ(list.Rows[0].Cells[0].Tag.toString(), QStringLiteral("O02015001"));
    EXPECT_EQ(list.Rows[0].Checked, std::optional<bool>(false));
    EXPECT_FALSE(list.Rows[0].Cells[0].Bold);
    EXPECT_TRUE(list.Rows[0].Cells[1].Colour.isEmpty());
    EXPECT_EQ(list.Rows[1].Cells[1].Colour, QStringLiteral("#ff0000"));
    EXPECT_TRUE(list.Rows[2].Cells[0].Bold);
    EXPECT_TRUE(list.Rows[2].Cells[1].Bold);
    EXPECT_FALSE(list.Rows[2].Cells[0].Tag.isValid());
    EXPECT_FALSE(list.Rows[2].Checked.has_value());

    const QJsonObject json = list.ToJson();
    const QJsonObject second = json.value("rows").toArray().at(1).toObject();
    EXPECT_EQ(second.value("cells").toArray().at(1).toObject().value("colour").toString(),
              QStringLiteral("#ff0000"));
    EXPECT_EQ(second.value("cells").toArray().at(0).toObject().value("tag").toString(),
              QStringLiteral("O02015002"));
}

TEST_F(FormDriverTest, RowsAreCheckedSelectedAndDoubleClicked) {
    ASSERT_TRUE(driver_->CheckRow(QStringLiteral("lvwRows"), 0, true).ok());
    ASSERT_TRUE(driver_->CheckRow(QStringLiteral("lvwRows"), 1, true).ok());
    EXPECT_EQ(read(QStringLiteral("lblChecked")).Text, QStringLiteral("2"));
    ASSERT_TRUE(driver_->CheckRow(QStringLiteral("lvwRows"), 0, false).ok());
    EXPECT_EQ(read(QStringLiteral("lblChecked")).Text, QStringLiteral("1"));
    EXPECT_EQ(read(QStringLiteral("lvwRows")).Rows[1].Checked, std::optional<bool>(true));

    ASSERT_TRUE(driver_->SelectRow(QStringLiteral("lvwRows"), 2).ok());
    const ControlState list = read(QStringLiteral("lvwRows"));
    EXPECT_EQ(list.Index, 2);
    EXPECT_TRUE(list.Rows[2].Selected);
    EXPECT_FALSE(list.Rows[0].Selected);

    ASSERT_TRUE(driver_->DoubleClickRow(QStringLiteral("lvwRows"), 1).ok());
    EXPECT_EQ(read(QStringLiteral("lblResult")).Text, QStringLiteral("dvigubas: O02015002"));
}

TEST_F(FormDriverTest, RowsBeyondTheListAndRowsWithoutCheckAreRefused) {
    const DriveResult beyond = driver_->SelectRow(QStringLiteral("lvwRows"), 3);
    EXPECT_EQ(
        beyond.Result.Text,
        QStringLiteral("Sąraše „lvwRows“ formoje „frmProbe“ nėra eilutės nr. 3 (eilučių: 3)."));
    EXPECT_FALSE(driver_->CheckRow(QStringLiteral("lvwRows"), 2, true).ok());
    EXPECT_FALSE(driver_->SelectRow(QStringLiteral("txtName"), 0).ok());
}

TEST_F(FormDriverTest, MissingControlIsRefusedInLithuanian) {
    const DriveResult click = driver_->Click(QStringLiteral("cmdNera"));
    EXPECT_FALSE(click.ok());
    EXPECT_EQ(click.Result.Code, codes::Refused);
    EXPECT_EQ(click.Result.Text,
              QStringLiteral("Valdiklis „cmdNera“ nerastas formoje „frmProbe“."));
    EXPECT_EQ(driver_->Read(QStringLiteral("txtNera")).Result.Text,
              QStringLiteral("Valdiklis „txtNera“ nerastas formoje „frmProbe“."));
    EXPECT_FALSE(driver_->SetText(QStringLiteral("txtNera"), QStringLiteral("x")).ok());
}

TEST_F(FormDriverTest, DisabledHiddenAndWrongKindControlsAreRefused) {
    EXPECT_EQ(
        driver_->Click(QStringLiteral("cmdDisabled")).Result.Text,
        QStringLiteral("Valdiklis „cmdDisabled“ formoje „frmProbe“ neprieinamas (išjungtas)."));
    EXPECT_EQ(driver_->Click(QStringLiteral("cmdHidden")).Result.Text,
              QStringLiteral("Valdiklis „cmdHidden“ formoje „frmProbe“ nematomas."));
    EXPECT_EQ(driver_->SetText(QStringLiteral("chkActive"), QStringLiteral("x")).Result.Text,
              QStringLiteral("Į valdiklį „chkActive“ (QCheckBox) formoje „frmProbe“ teksto įvesti "
                             "negalima."));
    EXPECT_FALSE(driver_->Click(QStringLiteral("txtName")).ok());
    const ControlState disabled = read(QStringLiteral("cmdDisabled"));
    EXPECT_FALSE(disabled.Enabled);
    EXPECT_TRUE(disabled.Visible);
    EXPECT_FALSE(read(QStringLiteral("cmdHidden")).Visible);
}

TEST_F(FormDriverTest, ClickThatOpensAModalWindowIsFollowedByStepsInThatWindow) {
    int served = 0;
    driver_->SetModalHandler([&served](QWidget& modal) {
        ++served;
        // The window is found by its objectName, as the next steps of a script find it.
        QWidget* window = FormDriver::FindWindow(QStringLiteral("frmProbeAsk"));
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(modal.objectName(), QStringLiteral("frmProbeAskDialog"));
        FormDriver ask(*window);
        ASSERT_TRUE(ask.SetText(QStringLiteral("txtAnswer"), QStringLiteral("taip")).ok());
        ASSERT_TRUE(ask.Click(QStringLiteral("cmdOK")).ok());
    });
    const DriveResult r = driver_->Click(QStringLiteral("cmdOpen"));
    ASSERT_TRUE(r.ok()) << r.Result.Text.toStdString();
    EXPECT_EQ(served, 1);
    EXPECT_EQ(r.Modals, QStringList{QStringLiteral("frmProbeAskDialog")});
    // The click's handler went on after the window closed.
    EXPECT_EQ(read(QStringLiteral("lblResult")).Text, QStringLiteral("atsakyta: taip"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FormDriverTest, ModalWindowLeftOpenIsCancelledSoNothingWaits) {
    const DriveResult r = driver_->Click(QStringLiteral("cmdOpen"));
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.Modals, QStringList{QStringLiteral("frmProbeAskDialog")});
    EXPECT_EQ(read(QStringLiteral("lblResult")).Text, QStringLiteral("atšaukta"));
}

TEST_F(FormDriverTest, TwoBoxesOneAfterTheOtherAreBothServed) {
    QStringList texts;
    driver_->SetModalHandler([&texts](QWidget& modal) {
        texts.append(qobject_cast<QMessageBox*>(&modal)->text());
        FormDriver box(modal);
        EXPECT_TRUE(box.Click(QStringLiteral("cmdOK")).ok());
    });
    const DriveResult r = driver_->Click(QStringLiteral("cmdTwice"));
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(texts, QStringList({QStringLiteral("Pirmas"), QStringLiteral("Antras")}));
    EXPECT_EQ(read(QStringLiteral("lblResult")).Text, QStringLiteral("abu parodyti"));
}

} // namespace
} // namespace orvo::ui::testing
