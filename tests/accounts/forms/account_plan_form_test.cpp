// The editor of the chart (frmAccountPlan) on real widgets: keys typed into its boxes,
// its buttons clicked and its roles checked by control name, and what reaches the book
// read back from it.
#include "forms_fixture.h"

#include "accounts/account_plan_navigator.h"
#include "accounts/forms/account_plan_form.h"

#include <QGroupBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QTreeWidget>

namespace orvo::accounts_forms::testing {

namespace {

class AccountPlanFormTest : public FormsTest {
protected:
    QString IdOf(const QString& account) {
        return Scalar(QStringLiteral("SELECT ID FROM Accounts WHERE Account = ?"),
                      {Value(account)});
    }

    // Opens the editor as the navigator's menu does: a new record under `parentOid`
    // (the root for a class), or a stored record.
    std::shared_ptr<FrmAccountPlan> OpenNew(const QString& parentOid, const QString& caption) {
        const OrvoObjectUIPtr nav =
            session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0200400"));
        const ClickResult click =
            nav->ClickMenu(parentOid, QString(), caption, QStringLiteral("1"));
        EXPECT_EQ(click.Action, ClickResult::ShowForm);
        const auto form = std::dynamic_pointer_cast<FrmAccountPlan>(
            std::dynamic_pointer_cast<OrvoForm>(click.Payload.toObject()));
        EXPECT_TRUE(form);
        if (form) {
            window_->Desk()->Present(form);
            QApplication::processEvents();
        }
        return form;
    }

    std::shared_ptr<FrmAccountPlan> OpenNewAccountUnder(const QString& parent) {
        return OpenNew(QStringLiteral("O0200401") + IdOf(parent), UI0200400::kNewAccount);
    }

    std::shared_ptr<FrmAccountPlan> OpenStored(const QString& account) {
        return Open<FrmAccountPlan>(QStringLiteral("frmAccountPlan"),
                                    Object(QStringLiteral("O0200401") + IdOf(account)));
    }

    QLineEdit* Box(const std::shared_ptr<FrmAccountPlan>& f, const char* name) {
        return Control<QLineEdit>(f->Widget(), QString::fromLatin1(name));
    }
    QPushButton* Button(const std::shared_ptr<FrmAccountPlan>& f, const char* name) {
        return Control<QPushButton>(f->Widget(), QString::fromLatin1(name));
    }
};

TEST_F(AccountPlanFormTest, ControlsCarryTheirNamesAndCaptions) {
    const auto form = OpenStored(QStringLiteral("2410"));
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    for (const char* name : {"txtAccountClass", "txtNameClass", "txtTypeClass", "txtAccount",
                             "txtName", "txtType", "txtNewAcc"})
        EXPECT_NE(w->findChild<QLineEdit*>(QString::fromLatin1(name)), nullptr) << name;
    EXPECT_EQ(Button(form, "cmdEnter")->text(), QStringLiteral("Įrašyti"));
    EXPECT_EQ(Button(form, "cmdCancel")->text(), QStringLiteral("Atšaukti"));
    for (const char* name : {"SSCNew", "SSCClose", "cmdNewAcc", "cmdCleanAcc"})
        EXPECT_NE(w->findChild<QPushButton*>(QString::fromLatin1(name)), nullptr) << name;
    EXPECT_EQ(Control<QLabel>(w, QStringLiteral("lblOldAcc"))->text(),
              QStringLiteral("Atitinkanti nauja sąskaita:"));
    EXPECT_NE(w->findChild<QLabel*>(QStringLiteral("LbAccount")), nullptr);
    auto* roles = Control<QTreeWidget>(w, QStringLiteral("LVProperties"));
    EXPECT_EQ(roles->headerItem()->text(0), QStringLiteral("Atitikimas"));
    EXPECT_EQ(roles->headerItem()->text(1), QStringLiteral("Sąskaita"));
    auto* print = w->findChild<QAction*>(QStringLiteral("mnuPrint"));
    ASSERT_NE(print, nullptr);
    EXPECT_EQ(print->text(), QStringLiteral("Spausdinti"));
    EXPECT_EQ(Control<QGroupBox>(w, QStringLiteral("SSPMain"))->title(), QStringLiteral("Klasė"));
    EXPECT_EQ(Control<QGroupBox>(w, QStringLiteral("SSPSubAcc"))->title(),
              QStringLiteral("Sąskaita"));
    EXPECT_EQ(Box(form, "txtAccountClass")->text(), QStringLiteral("2"));
    EXPECT_EQ(Box(form, "txtAccount")->text(), QStringLiteral("2410"));
    EXPECT_EQ(Box(form, "txtName")->text(), QStringLiteral("Pirkėjų įsiskolinimai"));
    // The class panel of an account is only shown.
    EXPECT_TRUE(Box(form, "txtAccountClass")->isReadOnly());
}

TEST_F(AccountPlanFormTest, ClassNumberedZeroCannotBeSavedAndGetsNoMessage) {
    for (const QString& zero : {QStringLiteral("0"), QStringLiteral("00")}) {
        const auto form = OpenNew(QStringLiteral("O0200400"), UI0200400::kNewClass);
        ASSERT_TRUE(form);
        const QString before = Scalar(QStringLiteral("SELECT COUNT(*) FROM Accounts"));
        Type(Box(form, "txtAccountClass"), zero);
        Type(Box(form, "txtNameClass"), QStringLiteral("Nulinė klasė"));
        Type(Box(form, "txtTypeClass"), QStringLiteral("d"));
        EXPECT_EQ(Box(form, "txtAccountClass")->text(), zero);
        QTest::mouseClick(Button(form, "cmdEnter"), Qt::LeftButton);
        EXPECT_TRUE(Boxes().isEmpty()) << zero.toStdString();
        EXPECT_EQ(Box(form, "txtAccountClass")->text(), QString());
        EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM Accounts")), before);
        EXPECT_TRUE(form->Editor()->IsNew());
    }
}

TEST_F(AccountPlanFormTest, LeavingAClassNumberOfZeroHoldsTheFocusInTheBox) {
    const auto form = OpenNew(QStringLiteral("O0200400"), UI0200400::kNewClass);
    ASSERT_TRUE(form);
    QLineEdit* number = Box(form, "txtAccountClass");
    Type(number, QStringLiteral("00"));
    Box(form, "txtNameClass")->setFocus();
    QApplication::processEvents();
    QApplication::processEvents();
    EXPECT_TRUE(number->hasFocus());
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_F(AccountPlanFormTest, NewAccountShowsItsParentsNumberAndSavingItUnchangedSaysNoNumber) {
    const auto form = OpenNewAccountUnder(QStringLiteral("2"));
    ASSERT_TRUE(form);
    EXPECT_EQ(Control<QGroupBox>(form->Widget(), QStringLiteral("SSPSubAcc"))->title(),
              QStringLiteral("Nauja sąskaita"));
    EXPECT_EQ(Box(form, "txtAccount")->text(), QStringLiteral("2"));
    // The type comes from the class.
    EXPECT_EQ(Box(form, "txtType")->text(), QStringLiteral("D"));
    Type(Box(form, "txtName"), QStringLiteral("Avansai"));
    Box(form, "txtType")->setFocus();
    const QString before = Scalar(QStringLiteral("SELECT COUNT(*) FROM Accounts"));
    QTest::mouseClick(Button(form, "cmdEnter"), Qt::LeftButton);
    const QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Error);
    EXPECT_EQ(shown.first().Title, QStringLiteral("Orvo Apskaita"));
    EXPECT_EQ(shown.first().Text, QStringLiteral("Nenurodytas sąskaitos numeris"));
    // The box holds its window's focus (the window takes it back when reactivated).
    Settle();
    EXPECT_EQ(form->Widget()->window()->focusWidget(), Box(form, "txtAccount"));
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM Accounts")), before);
}

TEST_F(AccountPlanFormTest, NewAccountTypedAndSavedIsStoredUnderItsParent) {
    const auto form = OpenNewAccountUnder(QStringLiteral("2"));
    ASSERT_TRUE(form);
    QLineEdit* number = Box(form, "txtAccount");
    number->setFocus();
    number->end(false);
    QTest::keyClicks(number, QStringLiteral("450"));
    Type(Box(form, "txtName"), QStringLiteral("Avansai tiekėjams"));
    QTest::mouseClick(Button(form, "cmdEnter"), Qt::LeftButton);
    EXPECT_TRUE(Boxes().isEmpty());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT Name FROM Accounts WHERE Account = '2450'")),
              QStringLiteral("Avansai tiekėjams"));
    EXPECT_EQ(Scalar(QStringLiteral("SELECT Type FROM Accounts WHERE Account = '2450'")),
              QStringLiteral("D"));
    EXPECT_EQ(Scalar(QStringLiteral("SELECT ParentID FROM Accounts WHERE Account = '2450'")),
              IdOf(QStringLiteral("2")));
    EXPECT_EQ(Control<QGroupBox>(form->Widget(), QStringLiteral("SSPSubAcc"))->title(),
              QStringLiteral("Sąskaita"));
    EXPECT_FALSE(Button(form, "cmdEnter")->isEnabled());
    EXPECT_TRUE(Button(form, "SSCNew")->isEnabled());
}

TEST_F(AccountPlanFormTest, DeletingThePrefixOfTheNumberRestoresItWithTheCaretAtTheEnd) {
    const auto form = OpenStored(QStringLiteral("2711"));
    ASSERT_TRUE(form);
    QLineEdit* number = Box(form, "txtAccount");
    EXPECT_EQ(number->text(), QStringLiteral("2711"));
    number->setFocus();
    number->setCursorPosition(2);
    // Backspace twice takes "27", the parent's number, away.
    QTest::keyClick(number, Qt::Key_Backspace);
    EXPECT_EQ(number->text(), QStringLiteral("27"));
    EXPECT_EQ(number->cursorPosition(), 2);
    number->setCursorPosition(1);
    QTest::keyClick(number, Qt::Key_Backspace);
    EXPECT_EQ(number->text(), QStringLiteral("27"));
    EXPECT_EQ(number->cursorPosition(), 2);
}

TEST_F(AccountPlanFormTest, NumberBoxesTakeDigitsAndBackspaceOnly) {
    const auto form = OpenStored(QStringLiteral("2410"));
    ASSERT_TRUE(form);
    QLineEdit* number = Box(form, "txtAccount");
    number->setFocus();
    number->end(false);
    QTest::keyClicks(number, QStringLiteral("a-.7 x"));
    EXPECT_EQ(number->text(), QStringLiteral("24107"));
    QTest::keyClick(number, Qt::Key_Backspace);
    EXPECT_EQ(number->text(), QStringLiteral("2410"));
    EXPECT_TRUE(Button(form, "cmdEnter")->isEnabled());
}

TEST_F(AccountPlanFormTest, TypingXInTheTypeBoxGivesDAndKGivesK) {
    const auto form = OpenStored(QStringLiteral("2410"));
    ASSERT_TRUE(form);
    QLineEdit* type = Box(form, "txtType");
    type->clear();
    Type(type, QStringLiteral("x"));
    EXPECT_EQ(type->text(), QStringLiteral("D"));
    type->clear();
    Type(type, QStringLiteral("k"));
    EXPECT_EQ(type->text(), QStringLiteral("K"));
    Type(type, QStringLiteral("d"));
    EXPECT_EQ(type->text(), QStringLiteral("D"));

    const auto classForm = OpenNew(QStringLiteral("O0200400"), UI0200400::kNewClass);
    ASSERT_TRUE(classForm);
    QLineEdit* classType = Box(classForm, "txtTypeClass");
    Type(classType, QStringLiteral("x"));
    EXPECT_EQ(classType->text(), QStringLiteral("D"));
    classType->clear();
    Type(classType, QStringLiteral("k"));
    EXPECT_EQ(classType->text(), QStringLiteral("K"));
}

TEST_F(AccountPlanFormTest, CheckingASecondRoleUnchecksTheFirstAndTheSecondIsStored) {
    const auto form = OpenStored(QStringLiteral("2040"));
    ASSERT_TRUE(form);
    auto* roles = Control<QTreeWidget>(form->Widget(), QStringLiteral("LVProperties"));
    ASSERT_GE(roles->topLevelItemCount(), 2);
    for (int i = 0; i < roles->topLevelItemCount(); ++i)
        EXPECT_EQ(roles->topLevelItem(i)->checkState(0), Qt::Unchecked);
    roles->topLevelItem(0)->setCheckState(0, Qt::Checked);
    roles->topLevelItem(1)->setCheckState(0, Qt::Checked);
    EXPECT_EQ(roles->topLevelItem(0)->checkState(0), Qt::Unchecked);
    EXPECT_EQ(roles->topLevelItem(1)->checkState(0), Qt::Checked);
    int checked = 0;
    for (int i = 0; i < roles->topLevelItemCount(); ++i)
        checked += roles->topLevelItem(i)->checkState(0) == Qt::Checked ? 1 : 0;
    EXPECT_EQ(checked, 1);
    EXPECT_TRUE(Button(form, "cmdEnter")->isEnabled());
    const QString secondId = roles->topLevelItem(1)->data(0, Qt::UserRole).toString().mid(1);
    QTest::mouseClick(Button(form, "cmdEnter"), Qt::LeftButton);
    EXPECT_TRUE(Boxes().isEmpty());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT BRAPropertyID FROM Accounts WHERE Account = '2040'")),
              secondId);
}

TEST_F(AccountPlanFormTest, TheChangedMarkEnablesSaveAndUndoAndDisablesNew) {
    const auto form = OpenStored(QStringLiteral("2410"));
    ASSERT_TRUE(form);
    EXPECT_FALSE(Button(form, "cmdEnter")->isEnabled());
    EXPECT_FALSE(Button(form, "cmdCancel")->isEnabled());
    EXPECT_TRUE(Button(form, "SSCNew")->isEnabled());
    Type(Box(form, "txtName"), QStringLiteral(" (pakeista)"));
    EXPECT_TRUE(Button(form, "cmdEnter")->isEnabled());
    EXPECT_TRUE(Button(form, "cmdCancel")->isEnabled());
    EXPECT_FALSE(Button(form, "SSCNew")->isEnabled());
    QTest::mouseClick(Button(form, "cmdCancel"), Qt::LeftButton);
    EXPECT_EQ(Box(form, "txtName")->text(), QStringLiteral("Pirkėjų įsiskolinimai"));
    EXPECT_FALSE(Button(form, "cmdEnter")->isEnabled());
    EXPECT_TRUE(Button(form, "SSCNew")->isEnabled());
}

TEST_F(AccountPlanFormTest, ADuplicateNumberIsRefusedAndTheFormStaysChanged) {
    const auto form = OpenNewAccountUnder(QStringLiteral("2"));
    ASSERT_TRUE(form);
    QLineEdit* number = Box(form, "txtAccount");
    number->setFocus();
    number->end(false);
    QTest::keyClicks(number, QStringLiteral("410"));
    Type(Box(form, "txtName"), QStringLiteral("Antra"));
    QTest::mouseClick(Button(form, "cmdEnter"), Qt::LeftButton);
    const QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Error);
    EXPECT_EQ(shown.first().Text, QStringLiteral("Klaida!\n\nTokia sąskaita jau egzistuoja!"));
    EXPECT_TRUE(form->Editor()->Changed());
    EXPECT_TRUE(Button(form, "cmdEnter")->isEnabled());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM Accounts WHERE Account = '2410'")),
              QStringLiteral("1"));
}

TEST_F(AccountPlanFormTest, ANewRecordOfTheSameLevelKeepsTheParent) {
    const auto form = OpenStored(QStringLiteral("2410"));
    ASSERT_TRUE(form);
    QTest::mouseClick(Button(form, "SSCNew"), Qt::LeftButton);
    EXPECT_TRUE(form->Editor()->IsNew());
    EXPECT_EQ(Box(form, "txtAccount")->text(), QStringLiteral("2"));
    EXPECT_EQ(Box(form, "txtName")->text(), QString());
    EXPECT_EQ(Control<QGroupBox>(form->Widget(), QStringLiteral("SSPSubAcc"))->title(),
              QStringLiteral("Nauja sąskaita"));
}

TEST_F(AccountPlanFormTest, ClosingWithChangesAsksAndNoKeepsTheFormOpen) {
    const auto form = OpenStored(QStringLiteral("2410"));
    ASSERT_TRUE(form);
    Type(Box(form, "txtName"), QStringLiteral("x"));
    AnswerBoxes(QStringLiteral("cmdNo"));
    QTest::mouseClick(Button(form, "SSCClose"), Qt::LeftButton);
    QApplication::processEvents();
    QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Question);
    EXPECT_EQ(shown.first().Text, form->Caption() + QStringLiteral("\n\nUždaryti be išsaugojimo?"));
    EXPECT_EQ(window_->Desk()->Forms().size(), 1);

    AnswerBoxes(QStringLiteral("cmdYes"));
    QTest::mouseClick(Button(form, "SSCClose"), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_TRUE(window_->Desk()->Forms().isEmpty());
}

TEST_F(AccountPlanFormTest, TabWalksTheClassTheAccountThenTheRolesAndTheButtons) {
    const auto form = OpenNew(QStringLiteral("O0200400"), UI0200400::kNewClass);
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    Box(form, "txtAccountClass")->setFocus();
    Settle();
    QStringList walked;
    for (int i = 0; i < 4; ++i) {
        QWidget* at = QApplication::focusWidget();
        ASSERT_NE(at, nullptr);
        walked << at->objectName();
        QTest::keyClick(at, Qt::Key_Tab);
    }
    // A class has no account panel: from its type the walk goes to the roles.
    EXPECT_EQ(walked,
              (QStringList{QStringLiteral("txtAccountClass"), QStringLiteral("txtNameClass"),
                           QStringLiteral("txtTypeClass"), QStringLiteral("LVProperties")}));

    const auto account = OpenStored(QStringLiteral("2410"));
    ASSERT_TRUE(account);
    Box(account, "txtAccount")->setFocus();
    Settle();
    walked.clear();
    for (int i = 0; i < 4; ++i) {
        QWidget* at = QApplication::focusWidget();
        ASSERT_NE(at, nullptr);
        walked << at->objectName();
        QTest::keyClick(at, Qt::Key_Tab);
    }
    EXPECT_EQ(walked, (QStringList{QStringLiteral("txtAccount"), QStringLiteral("txtName"),
                                   QStringLiteral("txtType"), QStringLiteral("LVProperties")}));
    Q_UNUSED(w);
}

TEST_F(AccountPlanFormTest, ANewClassTypedAndSavedIsStoredWithoutAParent) {
    const auto form = OpenNew(QStringLiteral("O0200400"), UI0200400::kNewClass);
    ASSERT_TRUE(form);
    EXPECT_EQ(Control<QGroupBox>(form->Widget(), QStringLiteral("SSPMain"))->title(),
              QStringLiteral("Nauja klasė"));
    EXPECT_FALSE(Control<QGroupBox>(form->Widget(), QStringLiteral("SSPSubAcc"))->isVisible());
    Type(Box(form, "txtAccountClass"), QStringLiteral("8"));
    Type(Box(form, "txtNameClass"), QStringLiteral("Nebalansinės sąskaitos"));
    Box(form, "txtTypeClass")->clear();
    Type(Box(form, "txtTypeClass"), QStringLiteral("k"));
    QTest::mouseClick(Button(form, "cmdEnter"), Qt::LeftButton);
    EXPECT_TRUE(Boxes().isEmpty());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT Name FROM Accounts WHERE Account = '8' AND "
                                    "(ParentID IS NULL OR ParentID = 0)")),
              QStringLiteral("Nebalansinės sąskaitos"));
    EXPECT_EQ(Scalar(QStringLiteral("SELECT Type FROM Accounts WHERE Account = '8'")),
              QStringLiteral("K"));
    EXPECT_EQ(Control<QGroupBox>(form->Widget(), QStringLiteral("SSPMain"))->title(),
              QStringLiteral("Klasė"));
}

TEST_F(AccountPlanFormTest, TheMatchingAccountRowShowsOnlyInTheFullPlanMode) {
    const OrvoObjectUIPtr nav =
        session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0200400"));
    const QString oid = QStringLiteral("O0200401") + IdOf(QStringLiteral("2410"));
    const auto plain =
        Open<FrmAccountPlan>(QStringLiteral("frmAccountPlan"), nav->GetOrvoObject(oid));
    ASSERT_TRUE(plain);
    EXPECT_FALSE(Control<QWidget>(plain->Widget(), QStringLiteral("txtNewAcc"))->isVisible());
    nav->ClickMenu(QStringLiteral("O0200400"), QString(), UI0200400::kPlans, QStringLiteral("5"));
    const OrvoObjectUIOPtr object = nav->GetOrvoObject(oid);
    object->SetField(QStringLiteral("NewID"), Value(IdOf(QStringLiteral("2420")).toDouble()));
    const auto full = Open<FrmAccountPlan>(QStringLiteral("frmAccountPlan"), object);
    ASSERT_TRUE(full);
    EXPECT_TRUE(Control<QWidget>(full->Widget(), QStringLiteral("lblOldAcc"))->isVisible());
    EXPECT_TRUE(Control<QWidget>(full->Widget(), QStringLiteral("txtNewAcc"))->isVisible());
    EXPECT_EQ(Box(full, "txtNewAcc")->text(), QStringLiteral("2420 Kitos gautinos sumos"));
    // Clearing forgets the matching account and marks the record changed.
    QTest::mouseClick(Button(full, "cmdCleanAcc"), Qt::LeftButton);
    EXPECT_EQ(Box(full, "txtNewAcc")->text(), QString());
    EXPECT_TRUE(object->Field(QStringLiteral("NewID")).isNull());
    EXPECT_TRUE(Button(full, "cmdEnter")->isEnabled());
}

TEST_F(AccountPlanFormTest, ClosingTheWindowByItsFrameWithChangesAsksToo) {
    const auto form = OpenStored(QStringLiteral("2410"));
    ASSERT_TRUE(form);
    Type(Box(form, "txtName"), QStringLiteral("x"));
    AnswerBoxes(QStringLiteral("cmdNo"));
    window_->Desk()->WindowOf(form.get())->close();
    QApplication::processEvents();
    ASSERT_EQ(Boxes().size(), 1);
    EXPECT_EQ(window_->Desk()->Forms().size(), 1);
    EXPECT_TRUE(window_->Desk()->WindowOf(form.get())->isVisible());
    AnswerBoxes(QStringLiteral("cmdYes"));
    const QPointer<QMdiSubWindow> frame = window_->Desk()->WindowOf(form.get());
    frame->close();
    QApplication::processEvents();
    EXPECT_EQ(Boxes().size(), 1);
    // The frame is closed now and deleted by Qt later.
    EXPECT_TRUE(!frame || !frame->isVisible());
}

} // namespace

} // namespace orvo::accounts_forms::testing
