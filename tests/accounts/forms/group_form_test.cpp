// The operation group's window (frmBROperGroup) and the contract document parameters'
// window (frmDocumentParameters) on real widgets over the demo book: the defaults and
// titles, the tabs of each form type, the number's parts moved and stored, the refusal
// of a contract document group without templates, a save read back, the debts'
// buttons, the templates' tree, the keyboard and the question on closing.
#include "forms_fixture.h"

#include "accounts/forms/document_parameters_form.h"
#include "accounts/forms/group_form.h"
#include "accounts/group_navigator.h"
#include "accounts/group_registration.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_objects_service.h"
#include "ui/automation/form_driver.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace orvo::accounts_forms::testing {

namespace {

class GroupFormTest : public FormsTest {
protected:
    void SetUp() override {
        FormsTest::SetUp();
        if (HasFatalFailure())
            return;
        RegisterGroupClasses();
    }

    QString GroupId(const QString& name) {
        return Scalar(QStringLiteral("SELECT ID FROM BROperGroups WHERE Name = ?"), {Value(name)});
    }

    std::shared_ptr<FrmBROperGroup> OpenGroup(const QString& name) {
        return Open<FrmBROperGroup>(QStringLiteral("frmBROperGroup"),
                                    Object(QStringLiteral("O0201400") + GroupId(name)));
    }

    std::shared_ptr<FrmBROperGroup> OpenNew(bool general) {
        const OrvoObjectUIOPtr object = Object(QStringLiteral("O0201400"));
        object->SetField(QStringLiteral("GroupFlag"), Value(general ? 1 : 0));
        return Open<FrmBROperGroup>(QStringLiteral("frmBROperGroup"), object);
    }

    // A new group's window named "Sutartys" with the contract document form type chosen.
    std::shared_ptr<FrmBROperGroup> NewContractGroup() {
        const auto form = OpenNew(false);
        if (!form)
            return nullptr;
        ui::FormDriver driver(*form->Widget());
        EXPECT_TRUE(driver.SetText(QStringLiteral("txtName"), QStringLiteral("Sutartys")).ok());
        EXPECT_TRUE(
            driver.ChooseItem(QStringLiteral("cmbFormType"), QStringLiteral("Sutarties dokumentas"))
                .ok());
        return form;
    }

    QStringList Texts() {
        QStringList out;
        for (const ui::ShownMessage& m : Boxes())
            out << m.Text;
        return out;
    }

    static QStringList VisibleTabs(QWidget* w) {
        auto* tabs = Control<QTabWidget>(w, QStringLiteral("TabStrip"));
        QStringList out;
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->isTabVisible(i))
                out << tabs->tabText(i);
        return out;
    }

    // Brings the tab's page forward, as a click on its caption does.
    static void ShowTab(QWidget* w, const QString& page) {
        auto* tabs = Control<QTabWidget>(w, QStringLiteral("TabStrip"));
        tabs->setCurrentWidget(Control(w, page));
        QApplication::processEvents();
    }

    static QStringList MaskRows(QWidget* w) {
        auto* list = Control<QTreeWidget>(w, QStringLiteral("lvwAutoNumber"));
        QStringList out;
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            out << list->topLevelItem(i)->text(0) +
                       (list->topLevelItem(i)->checkState(0) == Qt::Checked ? "+" : "-");
        return out;
    }
};

TEST_F(GroupFormTest, ANewGroupDefaultsToTheFirstDayOfThisYearAndToFormTypeO0201500) {
    const auto form = OpenNew(false);
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    EXPECT_EQ(w->windowTitle(), QStringLiteral("Finansinių operacijų apskaitos grupė"));
    EXPECT_EQ(Control<QLabel>(w, QStringLiteral("lblTitle"))->text(),
              QStringLiteral(" Nauja finansinių operacijų grupė"));
    EXPECT_EQ(Control<QDateEdit>(w, QStringLiteral("dtpDateFrom"))->date(),
              QDate(Today().year(), 1, 1));
    auto* formType = Control<QComboBox>(w, QStringLiteral("cmbFormType"));
    EXPECT_EQ(formType->currentData().toString(), QStringLiteral("O0201500"));
    EXPECT_EQ(formType->currentText(), QStringLiteral("Finansinė operacija"));
    EXPECT_EQ(VisibleTabs(w),
              QStringList({QStringLiteral("Operacijų šablonai"), QStringLiteral("Auto-numeris"),
                           QStringLiteral("Skolų atpažinimo nustatymas")}));
    EXPECT_EQ(Control<QComboBox>(w, QStringLiteral("cmbCycle"))->currentText(),
              QStringLiteral("Metai"));
    // The debts of a group not stored yet cannot be computed.
    EXPECT_FALSE(Control<QPushButton>(w, QStringLiteral("cmdCreateFullSum"))->isEnabled());
}

TEST_F(GroupFormTest, AGeneralGroupShowsOnlyItsNameAndTheGroupAbove) {
    const auto form = OpenNew(true);
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    EXPECT_EQ(Control<QLabel>(w, QStringLiteral("lblTitle"))->text(),
              QStringLiteral(" Nauja bendra grupė"));
    EXPECT_TRUE(Control(w, QStringLiteral("txtName"))->isVisibleTo(w));
    EXPECT_TRUE(Control(w, QStringLiteral("txtParentGroup"))->isVisibleTo(w));
    EXPECT_FALSE(Control(w, QStringLiteral("TabStrip"))->isVisibleTo(w));
    EXPECT_FALSE(Control(w, QStringLiteral("cmbFormType"))->isVisibleTo(w));
    EXPECT_FALSE(Control(w, QStringLiteral("txtSerija"))->isVisibleTo(w));
}

TEST_F(GroupFormTest, TheTabsAndBoxesFollowTheChosenFormType) {
    const auto form = OpenGroup(QStringLiteral("Bendrosios operacijos"));
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    EXPECT_EQ(Control<QLabel>(w, QStringLiteral("lblTitle"))->text(),
              QStringLiteral(" Finansinių operacijų grupė"));
    ui::FormDriver driver(*w);
    auto* numByAcc = Control(w, QStringLiteral("chkNumByAcc"));
    auto* parameters = Control(w, QStringLiteral("cmdParameters"));
    EXPECT_FALSE(numByAcc->isVisibleTo(w));
    EXPECT_FALSE(parameters->isEnabled());

    ASSERT_TRUE(
        driver.ChooseItem(QStringLiteral("cmbFormType"), QStringLiteral("Kasos pajamų orderis"))
            .ok());
    EXPECT_EQ(VisibleTabs(w), QStringList({QStringLiteral("Operacijų šablonai"),
                                           QStringLiteral("Skolų atpažinimo nustatymas")}));
    EXPECT_TRUE(parameters->isEnabled());
    EXPECT_FALSE(numByAcc->isVisibleTo(w));

    ASSERT_TRUE(
        driver.ChooseItem(QStringLiteral("cmbFormType"), QStringLiteral("Mokėjimo nurodymas"))
            .ok());
    EXPECT_EQ(VisibleTabs(w).size(), 3);
    EXPECT_TRUE(numByAcc->isVisibleTo(w));
    EXPECT_TRUE(form->Editor()->Changed());
}

TEST_F(GroupFormTest, ChoosingO1000100WithoutATemplateCannotBeSaved) {
    const auto form = NewContractGroup();
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    ui::FormDriver driver(*w);
    Boxes();
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdWrite")).ok());
    const QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Warning);
    EXPECT_EQ(shown.first().Text, QStringLiteral("Nenurodyti šablonai !"));
    // The form stays open with what was typed, and nothing is stored.
    EXPECT_TRUE(form->HasWidget());
    EXPECT_TRUE(w->isVisible());
    EXPECT_EQ(Control<QLineEdit>(w, QStringLiteral("txtName"))->text(), QStringLiteral("Sutartys"));
    EXPECT_TRUE(GroupId(QStringLiteral("Sutartys")).isEmpty());
}

TEST_F(GroupFormTest, SaveThenReopenShowsTheStoredValues) {
    const auto form = OpenNew(false);
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    ui::FormDriver driver(*w);
    ASSERT_TRUE(driver.SetText(QStringLiteral("txtName"), QStringLiteral("Bankas EUR")).ok());
    ASSERT_TRUE(
        driver.ChooseItem(QStringLiteral("cmbFormType"), QStringLiteral("Pinigų gavimas")).ok());
    ASSERT_TRUE(driver.SetChecked(QStringLiteral("chkNumByAcc"), true).ok());
    ASSERT_TRUE(driver.SetChecked(QStringLiteral("chkSerijaIndication"), true).ok());
    ASSERT_TRUE(driver.SetText(QStringLiteral("txtSerija"), QStringLiteral("PG")).ok());
    ShowTab(w, QStringLiteral("Autonumber"));
    ASSERT_TRUE(driver.SetText(QStringLiteral("txtPrefix"), QStringLiteral("GV")).ok());
    ASSERT_TRUE(driver.SetText(QStringLiteral("txtTemplate"), QStringLiteral("000")).ok());
    ASSERT_TRUE(driver.ChooseItem(QStringLiteral("cmbCycle"), QStringLiteral("Ketvirtis")).ok());
    ASSERT_TRUE(
        driver.ChooseItem(QStringLiteral("cmbGroupBy"), QStringLiteral("Pagal vartotoją")).ok());
    // The counter, then the prefix first; the date at the end, out of the number.
    ASSERT_TRUE(driver.CheckRow(QStringLiteral("lvwAutoNumber"), 1, true).ok());
    ASSERT_TRUE(driver.CheckRow(QStringLiteral("lvwAutoNumber"), 2, true).ok());
    ASSERT_TRUE(driver.SelectRow(QStringLiteral("lvwAutoNumber"), 2).ok());
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdUp")).ok());
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdUp")).ok());
    EXPECT_EQ(MaskRows(w),
              QStringList({QStringLiteral("Prefiksas+"), QStringLiteral("Darbuotojo kodas-"),
                           QStringLiteral("Auto-numeris+"), QStringLiteral("Data-")}));
    EXPECT_EQ(Control<QLineEdit>(w, QStringLiteral("txtExample"))->text(),
              QStringLiteral("GV-001"));

    // Ctrl+S saves from any box of the window.
    Control<QLineEdit>(w, QStringLiteral("txtName"))->setFocus();
    QTest::keyClick(Control<QLineEdit>(w, QStringLiteral("txtName")), Qt::Key_S,
                    Qt::ControlModifier);
    EXPECT_TRUE(Texts().isEmpty());
    const QString id = GroupId(QStringLiteral("Bankas EUR"));
    ASSERT_FALSE(id.isEmpty());
    EXPECT_EQ(Control<QLabel>(w, QStringLiteral("lblTitle"))->text(),
              QStringLiteral(" Finansinių operacijų grupė"));
    EXPECT_EQ(Scalar(QStringLiteral("SELECT ANMask FROM BROperGroups WHERE ID = ?"), {Value(id)}),
              QStringLiteral("Prefix_AutoNumber"));
    EXPECT_EQ(
        Scalar(QStringLiteral("SELECT Parameters FROM BROperGroups WHERE ID = ?"), {Value(id)}),
        QStringLiteral("#####1"));

    const auto again = OpenGroup(QStringLiteral("Bankas EUR"));
    ASSERT_TRUE(again);
    QWidget* r = again->Widget();
    EXPECT_EQ(Control<QComboBox>(r, QStringLiteral("cmbFormType"))->currentData().toString(),
              QStringLiteral("O0201502"));
    EXPECT_TRUE(Control<QCheckBox>(r, QStringLiteral("chkNumByAcc"))->isChecked());
    EXPECT_TRUE(Control<QCheckBox>(r, QStringLiteral("chkSerijaIndication"))->isChecked());
    EXPECT_EQ(Control<QLineEdit>(r, QStringLiteral("txtSerija"))->text(), QStringLiteral("PG"));
    EXPECT_EQ(Control<QComboBox>(r, QStringLiteral("cmbCycle"))->currentText(),
              QStringLiteral("Ketvirtis"));
    EXPECT_EQ(Control<QComboBox>(r, QStringLiteral("cmbGroupBy"))->currentText(),
              QStringLiteral("Pagal vartotoją"));
    EXPECT_EQ(MaskRows(r),
              QStringList({QStringLiteral("Prefiksas+"), QStringLiteral("Auto-numeris+"),
                           QStringLiteral("Darbuotojo kodas-"), QStringLiteral("Data-")}));
    EXPECT_EQ(Control<QLineEdit>(r, QStringLiteral("txtExample"))->text(),
              QStringLiteral("GV-001"));
}

TEST_F(GroupFormTest, ClosingAChangedFormAsksFirst) {
    const auto form = OpenGroup(QStringLiteral("Pardavimai"));
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    ui::FormDriver driver(*w);
    ASSERT_TRUE(driver.SetText(QStringLiteral("txtName"), QStringLiteral("Pardavimai 2")).ok());
    Boxes();
    AnswerBoxes(QStringLiteral("cmdNo"));
    ASSERT_TRUE(driver.Click(QStringLiteral("SSCClose")).ok());
    const QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Question);
    EXPECT_EQ(shown.first().Text, QStringLiteral("Uždaryti be išsaugojimo?"));
    EXPECT_TRUE(form->HasWidget());

    AnswerBoxes(QStringLiteral("cmdYes"));
    ASSERT_TRUE(driver.Click(QStringLiteral("SSCClose")).ok());
    QApplication::processEvents();
    EXPECT_EQ(Texts(), QStringList{QStringLiteral("Uždaryti be išsaugojimo?")});
    EXPECT_FALSE(GroupId(QStringLiteral("Pardavimai")).isEmpty());
}

TEST_F(GroupFormTest, AnUnchangedFormClosesWithoutAQuestion) {
    const auto form = OpenGroup(QStringLiteral("Pardavimai"));
    ASSERT_TRUE(form);
    Boxes();
    ASSERT_TRUE(form->CloseForm());
    EXPECT_TRUE(Texts().isEmpty());
}

TEST_F(GroupFormTest, TheDebtButtonsComputeAndClearTheGroupsDebts) {
    // The demo's unpaid invoice moves into the group, through the operation's own save.
    const QString name = QStringLiteral("Pardavimai");
    const QString invoice =
        Scalar(QStringLiteral("SELECT ID FROM BROpers WHERE Number = ?"), {Value("SF-1063")});
    ASSERT_FALSE(invoice.isEmpty());
    const OrvoObjectUIOPtr operation = Object(QStringLiteral("O0201500") + invoice);
    ASSERT_TRUE(operation);
    operation->SetField(QStringLiteral("BROperGroupID"), Value(GroupId(name).toDouble()));
    const ResultRecord moved = operation->Save();
    ASSERT_TRUE(moved.ok()) << moved.Text.toStdString();
    const auto form = OpenGroup(name);
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    EXPECT_EQ(Control<QPushButton>(w, QStringLiteral("cmdCreateFullSum"))->text(),
              QStringLiteral("Apskaičiuoti grupės operacijų skolas"));
    ShowTab(w, QStringLiteral("DebtSettings"));
    ui::FormDriver driver(*w);
    const QString id = GroupId(name);
    Boxes();
    AnswerBoxes(QStringLiteral("cmdYes"));
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdCreateFullSum")).ok());
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("Ar tikrai norite apskaičiuoti skolas?"),
                                    QStringLiteral("Atlikta!")}));
    const QString computed =
        Scalar(QStringLiteral("SELECT COUNT(*) FROM BROperGroupDebts WHERE BROperGroupID = ?"),
               {Value(id)});
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdClearFullSum")).ok());
    EXPECT_EQ(Texts(),
              QStringList({QStringLiteral("Ar tikrai norite panaikinti apskaičiuotas skolas?"),
                           QStringLiteral("Atlikta!")}));
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM BROperGroupDebts WHERE "
                                    "BROperGroupID = ?"),
                     {Value(id)}),
              QStringLiteral("0"));
    EXPECT_GT(computed.toInt(), 0);
}

TEST_F(GroupFormTest, TheTemplatesTreeShowsTheGroupsTemplatesAndSetsTheMainOne) {
    const auto form = OpenGroup(QStringLiteral("Pardavimai"));
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    auto* tree = Control<QTreeWidget>(w, QStringLiteral("trwTemplates"));
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    QTreeWidgetItem* top = tree->topLevelItem(0);
    EXPECT_EQ(top->text(0), QStringLiteral("Operacijų šablonai :"));
    EXPECT_TRUE(top->isExpanded());
    EXPECT_FALSE(Control<QLineEdit>(w, QStringLiteral("txtTemplateGroup"))->text().isEmpty());
    // The main template is bold; another one becomes the main one from the menu.
    const auto items = [tree]() {
        QList<QTreeWidgetItem*> out;
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            if (*it != tree->topLevelItem(0))
                out << *it;
        return out;
    };
    QTreeWidgetItem* other = nullptr;
    int bold = 0;
    for (QTreeWidgetItem* item : items()) {
        if (item->font(0).bold())
            ++bold;
        else if (!other && item->childCount() == 0)
            other = item;
    }
    EXPECT_EQ(bold, 1);
    ASSERT_NE(other, nullptr);
    const QString key = other->data(0, Qt::UserRole).toString();
    tree->setCurrentItem(other);
    w->findChild<QAction*>(QStringLiteral("mnuSetAsMain"))->trigger();
    EXPECT_EQ(form->Editor()->DefaultTemplateID, key.mid(1).toLongLong());
    EXPECT_EQ(
        Control<QLineEdit>(w, QStringLiteral("txtMainTemplate"))->text(),
        Scalar(QStringLiteral("SELECT Name FROM BRTemplates WHERE ID = ?"), {Value(key.mid(1))}));
    QStringList boldKeys;
    for (QTreeWidgetItem* item : items())
        if (item->font(0).bold())
            boldKeys << item->data(0, Qt::UserRole).toString();
    EXPECT_EQ(boldKeys, QStringList{key});

    ui::FormDriver driver(*w);
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdClearTemplate")).ok());
    EXPECT_TRUE(Control<QLineEdit>(w, QStringLiteral("txtTemplateGroup"))->text().isEmpty());
    EXPECT_EQ(tree->topLevelItem(0)->childCount(), 0);
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdClearMainTemplate")).ok());
    EXPECT_EQ(form->Editor()->DefaultTemplateID, 0);
}

TEST_F(GroupFormTest, TheAccountSettingsListHasItsThreeHeaders) {
    const auto form = OpenGroup(QStringLiteral("Pardavimai"));
    ASSERT_TRUE(form);
    auto* list = Control<QTreeWidget>(form->Widget(), QStringLiteral("lvwAccountSettings"));
    EXPECT_EQ(list->headerItem()->text(0), QStringLiteral("Nustatymo pavadinimas"));
    EXPECT_EQ(list->headerItem()->text(1), QStringLiteral("Sąskaitos Nr."));
    EXPECT_EQ(list->headerItem()->text(2), QStringLiteral("Sąskaitos pavadinimas"));
    EXPECT_GT(list->topLevelItemCount(), 0);
}

TEST_F(GroupFormTest, TheParametersOfACashGroupSayTheirWindowIsNotAvailable) {
    const auto form = OpenGroup(QStringLiteral("Kasos pajamų orderiai"));
    ASSERT_TRUE(form);
    ui::FormDriver driver(*form->Widget());
    Boxes();
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdParameters")).ok());
    EXPECT_EQ(Texts(),
              QStringList{UI0201400::NoWindowText(QStringLiteral("frmCashPaymentParameters"))});
}

TEST_F(GroupFormTest, TabMovesFromTheNameToTheFormType) {
    const auto form = OpenNew(false);
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    auto* name = Control<QLineEdit>(w, QStringLiteral("txtName"));
    name->setFocus();
    QApplication::processEvents();
    QTest::keyClick(name, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), Control(w, QStringLiteral("cmbFormType")));
}

TEST_F(GroupFormTest, TheDocumentParametersWindowWritesThePairsAndTheDocumentType) {
    const auto form = NewContractGroup();
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    ui::FormDriver driver(*w);
    QStringList types;
    QStringList rows;
    AnswerBoxes(QStringLiteral("cmdOK"), [&](QDialog& dialog) {
        if (!dialog.objectName().startsWith(QLatin1String("frmDocumentParameters")))
            return;
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Dokumento parametrai"));
        auto* docType = dialog.findChild<QComboBox*>(QStringLiteral("cmbDocType"));
        for (int i = 0; i < docType->count(); ++i)
            types << docType->itemText(i);
        ui::FormDriver d(dialog);
        EXPECT_TRUE(
            d.ChooseItem(QStringLiteral("cmbDocType"), QStringLiteral("Pirkimo sąskaita faktūra"))
                .ok());
        auto* list = dialog.findChild<QTreeWidget*>(QStringLiteral("lvwTemplates"));
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            rows << list->topLevelItem(i)->text(0);
        EXPECT_EQ(list->headerItem()->text(0), QStringLiteral("Šablono tipas"));
        EXPECT_EQ(list->headerItem()->text(1), QStringLiteral("Šablonas"));
        EXPECT_EQ(dialog.findChild<QPushButton*>(QStringLiteral("cmdSelect"))->text(),
                  QStringLiteral("&Pasirinkti"));
        EXPECT_EQ(dialog.findChild<QPushButton*>(QStringLiteral("cmdDelete"))->text(),
                  QStringLiteral("&Ištrinti"));
        EXPECT_TRUE(d.Click(QStringLiteral("cmdOK")).ok());
    });
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdParameters")).ok());
    AnswerBoxes();
    ASSERT_FALSE(types.isEmpty());
    EXPECT_EQ(types.last(), QStringLiteral("Pardavimo grąžinimas iš pirkėjų"));
    EXPECT_TRUE(types.contains(QStringLiteral("Pardavimo sąskaita faktūra")));
    EXPECT_EQ(rows, QStringList(
                        {QStringLiteral("PVM kontavimas"), QStringLiteral("Pirkimo kontavimas")}));
    // No template was chosen: only the document type is written.
    EXPECT_EQ(form->Editor()->Parameters, QStringLiteral("|PURCHASE_INVOICE"));
}

TEST_F(GroupFormTest, AStoredContractGroupShowsItsTemplatesInTheParametersWindow) {
    const QString saleTemplate =
        Scalar(QStringLiteral("SELECT ID FROM BRTemplates WHERE GroupFlag = 0 ORDER BY ID"));
    const QString typeId =
        Scalar(QStringLiteral("SELECT ID FROM TemplateTypes WHERE Name = 'Pardavimo kontavimas'"));
    ASSERT_FALSE(saleTemplate.isEmpty());
    {
        const OrvoObjectUIOPtr object = Object(QStringLiteral("O0201400"));
        object->SetField(QStringLiteral("GroupFlag"), Value(0));
        GroupEditor editor(object);
        ASSERT_TRUE(editor.Load().ok());
        editor.Name = QStringLiteral("Grąžinimai");
        editor.FormOID = QStringLiteral("O1000100");
        editor.Parameters =
            typeId + QStringLiteral("#") + saleTemplate + QStringLiteral("|RETURN_FROM_BUYER");
        ASSERT_TRUE(editor.Write().ok());
    }
    const OrvoObjectUIOPtr group =
        Object(QStringLiteral("O0201400") + GroupId(QStringLiteral("Grąžinimai")));
    DocumentParametersEditor editor(group);
    ASSERT_TRUE(editor.Load().ok());
    // No stored document type of that key: the key behind "|" chooses the fixed last row.
    EXPECT_EQ(editor.DocumentTypeIndex(), editor.DocumentTypes().size() - 1);
    int row = -1;
    for (int i = 0; i < editor.Rows().size(); ++i)
        if (QString::number(editor.Rows().at(i).TypeID) == typeId)
            row = i;
    ASSERT_GE(row, 0);
    const auto& first = editor.Rows().at(row);
    EXPECT_EQ(QString::number(first.TypeID), typeId);
    EXPECT_EQ(QString::number(first.TemplateID), saleTemplate);
    EXPECT_EQ(
        first.TemplateText,
        Scalar(QStringLiteral("SELECT Name FROM BRTemplates WHERE ID = ?"), {Value(saleTemplate)}));
    EXPECT_EQ(editor.Text(),
              typeId + QStringLiteral("#") + saleTemplate + QStringLiteral("|RETURN_FROM_BUYER"));
    EXPECT_TRUE(editor.Delete(row));
    EXPECT_EQ(editor.Text(), QStringLiteral("|RETURN_FROM_BUYER"));

    // The group's window with those parameters is stored again without a refusal.
    const auto form = OpenGroup(QStringLiteral("Grąžinimai"));
    ASSERT_TRUE(form);
    EXPECT_GT(
        Control<QTreeWidget>(form->Widget(), QStringLiteral("trwTemplates"))->topLevelItemCount(),
        0);
    Boxes();
    form->Write();
    EXPECT_TRUE(Texts().isEmpty());
}

TEST_F(GroupFormTest, TheNavigatorsNewGroupMenuOpensThisWindowUnderTheGroupClicked) {
    const QString parentId = GroupId(QStringLiteral("Pardavimai"));
    const auto navigator =
        session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201400"));
    ASSERT_TRUE(navigator);
    const ClickResult click = navigator->ClickMenu(QStringLiteral("O0201400") + parentId, QString(),
                                                   QStringLiteral("Naują bendra grupė"), QString());
    ASSERT_EQ(click.Action, ClickResult::ShowForm);
    const auto form = std::dynamic_pointer_cast<FrmBROperGroup>(click.Payload.toObject());
    ASSERT_TRUE(form);
    window_->Desk()->Present(form);
    QApplication::processEvents();
    QWidget* w = form->Widget();
    EXPECT_EQ(Control<QLabel>(w, QStringLiteral("lblTitle"))->text(),
              QStringLiteral(" Nauja bendra grupė"));
    EXPECT_EQ(Control<QLineEdit>(w, QStringLiteral("txtParentGroup"))->text(),
              QStringLiteral("Pardavimai"));
    ui::FormDriver driver(*w);
    ASSERT_TRUE(driver.SetText(QStringLiteral("txtName"), QStringLiteral("Padaliniai")).ok());
    ASSERT_TRUE(driver.Click(QStringLiteral("cmdWrite")).ok());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT ParentID FROM BROperGroups WHERE Name = ?"),
                     {Value("Padaliniai")}),
              parentId);
    EXPECT_EQ(Scalar(QStringLiteral("SELECT GroupFlag FROM BROperGroups WHERE Name = ?"),
                     {Value("Padaliniai")}),
              QStringLiteral("1"));
    EXPECT_EQ(Control<QLabel>(w, QStringLiteral("lblTitle"))->text(),
              QStringLiteral(" Bendra grupė"));
}

} // namespace
} // namespace orvo::accounts_forms::testing
