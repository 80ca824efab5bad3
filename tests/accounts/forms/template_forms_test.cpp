// The windows of operation templates on real widgets: the template's editor
// (frmBRTemplate) with its entries' menu, the entry's editor (frmBRTemplateAcc) with
// its factor rule and addressee kinds, and the chooser (frmBROperTemplateSelect) with
// its sum check; what reaches the book is read back from it.
#include "forms_fixture.h"

#include "accounts/forms/template_entry_form.h"
#include "accounts/forms/template_form.h"
#include "accounts/forms/template_select_form.h"
#include "accounts/group_registration.h"

#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace orvo::accounts_forms::testing {

namespace {

class TemplateFormsTest : public FormsTest {
protected:
    QString TemplateId(const QString& name) {
        return Scalar(QStringLiteral("SELECT ID FROM BRTemplates WHERE Name = ?"), {Value(name)});
    }

    std::shared_ptr<FrmBRTemplate> OpenTemplate(const QString& name) {
        return Open<FrmBRTemplate>(QStringLiteral("frmBRTemplate"),
                                   Object(QStringLiteral("O0201600") + TemplateId(name)));
    }

    QStringList Factors(const QString& templateName) {
        const host::QueryResult q = session_->Db().Query(
            QStringLiteral("SELECT a.Factor FROM BRTemplateAcc a JOIN BRTemplates t ON "
                           "t.ID = a.BRTemplateID WHERE t.Name = ? ORDER BY a.AccountC"),
            {Value(templateName)});
        QStringList out;
        for (int i = 0; i < q.RowCount(); ++i)
            out << QString::number(q.At(i, 0).toDouble());
        return out;
    }

    // Selects the entry row whose credit cell begins with `credit`.
    static void SelectRow(QTreeWidget* rows, const QString& credit) {
        for (int i = 0; i < rows->topLevelItemCount(); ++i)
            if (rows->topLevelItem(i)->text(1).startsWith(credit))
                rows->setCurrentItem(rows->topLevelItem(i));
    }

    // Runs the entry editor from a menu entry of the template's editor, with `drive`
    // working the entry's dialog.
    void RunEntry(const std::shared_ptr<FrmBRTemplate>& form, const char* action,
                  std::function<void(QWidget&)> drive) {
        AnswerBoxes(QStringLiteral("cmdOK"), [drive](QDialog& dialog) {
            if (dialog.objectName() == QLatin1String("frmBRTemplateAccDialog")) {
                // Focus moves only once the dialog is the active window.
                EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
                drive(dialog);
            }
        });
        auto* a = form->Widget()->findChild<QAction*>(QString::fromLatin1(action));
        ASSERT_NE(a, nullptr);
        a->trigger();
        AnswerBoxes();
    }
};

TEST_F(TemplateFormsTest, TheTemplateEditorShowsItsEntriesAndItsMenuNumbers) {
    const auto form = OpenTemplate(QStringLiteral("Prekių pardavimas su PVM"));
    ASSERT_TRUE(form);
    QWidget* w = form->Widget();
    EXPECT_EQ(Control<QLineEdit>(w, QStringLiteral("txtName"))->text(),
              QStringLiteral("Prekių pardavimas su PVM"));
    EXPECT_EQ(Control<QLineEdit>(w, QStringLiteral("txtGroup"))->text(),
              QStringLiteral("Pagrindiniai šablonai"));
    auto* rows = Control<QTreeWidget>(w, QStringLiteral("lvwRows"));
    EXPECT_EQ(rows->headerItem()->text(0), QStringLiteral("Debeto b/s"));
    EXPECT_EQ(rows->headerItem()->text(1), QStringLiteral("Kredito b/s"));
    EXPECT_EQ(rows->headerItem()->text(2), QStringLiteral("Koeficientas"));
    ASSERT_EQ(rows->topLevelItemCount(), 2);
    EXPECT_TRUE(rows->topLevelItem(0)->text(0).startsWith(QStringLiteral("2410 ")));
    const struct {
        const char* name;
        const char* caption;
        int number;
    } menu[] = {{"mnuAdd", "Pridėti", 101},
                {"mnuEdit", "Redaguoti", 102},
                {"mnuDelete", "Panaikinti", 103}};
    for (const auto& m : menu) {
        auto* action = w->findChild<QAction*>(QString::fromLatin1(m.name));
        ASSERT_NE(action, nullptr) << m.name;
        EXPECT_EQ(action->text(), QString::fromUtf8(m.caption));
        EXPECT_EQ(action->data().toInt(), m.number);
    }
    EXPECT_EQ(Control<QPushButton>(w, QStringLiteral("cmdWrite"))->text(),
              QStringLiteral("Įrašyti"));
    EXPECT_EQ(Control<QPushButton>(w, QStringLiteral("cmdCancel"))->text(),
              QStringLiteral("Atšaukti"));
}

TEST_F(TemplateFormsTest, FactorLeftEmptyOrNegativeBecomesOne) {
    const auto form = OpenTemplate(QStringLiteral("Prekių pardavimas su PVM"));
    ASSERT_TRUE(form);
    auto* rows = Control<QTreeWidget>(form->Widget(), QStringLiteral("lvwRows"));
    SelectRow(rows, QStringLiteral("4492"));
    QStringList seen;
    RunEntry(form, "mnuEdit", [&seen](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Buhalterinio įrašo šablonas"));
        auto* factor = dialog.findChild<QLineEdit*>(QStringLiteral("txtFactor"));
        auto* other = dialog.findChild<QComboBox*>(QStringLiteral("cmbAccountD"));
        ASSERT_TRUE(factor && other);
        seen << factor->text();
        // Leaves the box as a user does, with Tab.
        auto leave = [factor]() {
            QApplication::processEvents();
            QTest::keyClick(factor, Qt::Key_Tab);
            QApplication::processEvents();
        };
        auto enter = [factor](const QString& text) {
            factor->setFocus();
            QApplication::processEvents();
            factor->setText(text);
        };
        // Left empty.
        enter(QString());
        leave();
        seen << factor->text();
        // A negative factor pasted in.
        enter(QStringLiteral("-0,21"));
        leave();
        seen << factor->text();
        // Below 0.01.
        enter(QStringLiteral("0,001"));
        leave();
        seen << factor->text();
        Q_UNUSED(other);
        factor->setText(QString());
        ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    EXPECT_EQ(seen, (QStringList{QStringLiteral("0,21"), QStringLiteral("1"), QStringLiteral("1"),
                                 QStringLiteral("1")}));
    QTest::mouseClick(Control<QPushButton>(form->Widget(), QStringLiteral("cmdWrite")),
                      Qt::LeftButton);
    EXPECT_TRUE(Boxes().isEmpty());
    EXPECT_EQ(Factors(QStringLiteral("Prekių pardavimas su PVM")),
              (QStringList{QStringLiteral("1"), QStringLiteral("1")}));
}

TEST_F(TemplateFormsTest, FactorBoxDropsKeysOtherThanDigitsAndTheDecimalSeparator) {
    const auto form = OpenTemplate(QStringLiteral("Prekių pardavimas su PVM"));
    ASSERT_TRUE(form);
    SelectRow(Control<QTreeWidget>(form->Widget(), QStringLiteral("lvwRows")),
              QStringLiteral("4492"));
    QString typed;
    RunEntry(form, "mnuEdit", [&typed](QWidget& dialog) {
        auto* factor = dialog.findChild<QLineEdit*>(QStringLiteral("txtFactor"));
        ASSERT_NE(factor, nullptr);
        factor->setFocus();
        factor->clear();
        QTest::keyClicks(factor, QStringLiteral("a0.-5x,5"));
        typed = factor->text();
        ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    EXPECT_EQ(typed, QStringLiteral("0,55"));
    QTest::mouseClick(Control<QPushButton>(form->Widget(), QStringLiteral("cmdWrite")),
                      Qt::LeftButton);
    EXPECT_EQ(Factors(QStringLiteral("Prekių pardavimas su PVM")),
              (QStringList{QStringLiteral("0.55"), QStringLiteral("1")}));
}

TEST_F(TemplateFormsTest, ANewEntryWithADemandedAddresseeIsStoredWithTheTemplate) {
    const auto form = OpenTemplate(QStringLiteral("Pirkėjo apmokėjimas į banką"));
    ASSERT_TRUE(form);
    QStringList firstItems;
    QStringList kinds;
    RunEntry(form, "mnuAdd", [&](QWidget& dialog) {
        auto* debit = dialog.findChild<QComboBox*>(QStringLiteral("cmbAccountD"));
        auto* credit = dialog.findChild<QComboBox*>(QStringLiteral("cmbAccountC"));
        auto* addrD = dialog.findChild<QTreeWidget*>(QStringLiteral("lvwAddrD"));
        ASSERT_TRUE(debit && credit && addrD);
        firstItems << debit->itemText(0);
        debit->setCurrentIndex(debit->findText(QStringLiteral("2420"), Qt::MatchStartsWith));
        credit->setCurrentIndex(credit->findText(QStringLiteral("0 "), Qt::MatchStartsWith));
        for (int i = 0; i < addrD->topLevelItemCount(); ++i)
            kinds << addrD->topLevelItem(i)->data(0, Qt::UserRole).toString();
        ASSERT_GE(addrD->topLevelItemCount(), 1);
        addrD->topLevelItem(0)->setCheckState(0, Qt::Checked);
        ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    EXPECT_EQ(firstItems, QStringList{QStringLiteral("0 Pradiniai likučiai")});
    EXPECT_TRUE(kinds.contains(QStringLiteral("O0000100")));
    auto* rows = Control<QTreeWidget>(form->Widget(), QStringLiteral("lvwRows"));
    EXPECT_EQ(rows->topLevelItemCount(), 2);
    QTest::mouseClick(Control<QPushButton>(form->Widget(), QStringLiteral("cmdWrite")),
                      Qt::LeftButton);
    EXPECT_TRUE(Boxes().isEmpty());
    const QString id = TemplateId(QStringLiteral("Pirkėjo apmokėjimas į banką"));
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAcc WHERE BRTemplateID = ? "
                                    "AND AccountD = '2420' AND AccountC = '0'"),
                     {Value(id)}),
              QStringLiteral("1"));
    EXPECT_EQ(Scalar(QStringLiteral("SELECT ad.FOID FROM BRTemplateAddr ad JOIN BRTemplateAcc a "
                                    "ON a.GUID = ad.BRTemplateAccGUID WHERE a.AccountD = '2420' "
                                    "AND ad.Sign = 1")),
              kinds.value(0));
}

TEST_F(TemplateFormsTest, DeletingAnEntryAsksAndRemovesItWithItsAddressees) {
    const auto form = OpenTemplate(QStringLiteral("Prekių pardavimas su PVM"));
    ASSERT_TRUE(form);
    auto* rows = Control<QTreeWidget>(form->Widget(), QStringLiteral("lvwRows"));
    SelectRow(rows, QStringLiteral("5000"));
    AnswerBoxes(QStringLiteral("cmdYes"));
    form->Widget()->findChild<QAction*>(QStringLiteral("mnuDelete"))->trigger();
    const QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Text, QStringLiteral("Ar tikrai norite panaikinti?"));
    EXPECT_EQ(rows->topLevelItemCount(), 1);
    QTest::mouseClick(Control<QPushButton>(form->Widget(), QStringLiteral("cmdWrite")),
                      Qt::LeftButton);
    EXPECT_EQ(Factors(QStringLiteral("Prekių pardavimas su PVM")),
              QStringList{QStringLiteral("0.21")});
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAddr ad LEFT JOIN "
                                    "BRTemplateAcc a ON a.GUID = ad.BRTemplateAccGUID WHERE "
                                    "a.GUID IS NULL")),
              QStringLiteral("0"));
}

TEST_F(TemplateFormsTest, AnAccountMissingFromTheChartShowsAsUnknownAndCanBeEdited) {
    const OrvoObjectUIOPtr object =
        Object(QStringLiteral("O0201600") + TemplateId(QStringLiteral("Prekių pardavimas su PVM")));
    ASSERT_TRUE(object);
    const RecordsetPtr acc = object->Field(QStringLiteral("BRTemplateAcc")).toRecordset();
    acc->MoveFirst();
    acc->SetField(QStringLiteral("AccountD"), QStringLiteral("9999"));
    acc->Update();
    const auto form = Open<FrmBRTemplate>(QStringLiteral("frmBRTemplate"), object);
    ASSERT_TRUE(form);
    auto* rows = Control<QTreeWidget>(form->Widget(), QStringLiteral("lvwRows"));
    EXPECT_EQ(rows->topLevelItem(0)->text(0), QStringLiteral("9999* Nežinoma sąskaita"));
    rows->setCurrentItem(rows->topLevelItem(0));
    QString shown;
    RunEntry(form, "mnuEdit", [&shown](QWidget& dialog) {
        shown = dialog.findChild<QComboBox*>(QStringLiteral("cmbAccountD"))->currentText();
        ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    EXPECT_EQ(shown, QStringLiteral("9999"));
}

TEST_F(TemplateFormsTest, ClosingTheTemplateEditorWithChangesAsks) {
    const auto form = OpenTemplate(QStringLiteral("Prekių pardavimas su PVM"));
    ASSERT_TRUE(form);
    Type(Control<QLineEdit>(form->Widget(), QStringLiteral("txtName")), QStringLiteral(" 2"));
    AnswerBoxes(QStringLiteral("cmdNo"));
    QTest::mouseClick(Control<QPushButton>(form->Widget(), QStringLiteral("SSCClose")),
                      Qt::LeftButton);
    const QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Text, QStringLiteral("Uždaryti be išsaugojimo?"));
    EXPECT_EQ(window_->Desk()->Forms().size(), 1);
}

// The chooser runs modally: `drive` works its dialog.
TemplateChoiceResult Choose(const OrvoObjectUIOPtr& operation, OrvoFormPtr form,
                            std::function<void(QDialog&)> drive) {
    form->SetOrvoObjectUIO(operation);
    ui::DialogDriver::Set([drive](QDialog& dialog) {
        if (dialog.objectName() == QLatin1String("MessageBox")) {
            ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
            return;
        }
        drive(dialog);
    });
    form->Show(true);
    return dynamic_cast<TemplateChooserForm&>(*form).Choice();
}

TEST_F(TemplateFormsTest, ABadSumInTheChooserIsRefusedAndTheWindowStays) {
    const QString id = TemplateId(QStringLiteral("Prekių pirkimas su PVM"));
    bool stayed = false;
    QString caption;
    const TemplateChoiceResult r =
        Choose(nullptr, session_->Forms()->CreateForm(QStringLiteral("frmBROperTemplateSelect")),
               [&](QDialog& dialog) {
                   caption = dialog.windowTitle();
                   auto* tree = dialog.findChild<QTreeWidget*>(QStringLiteral("trwTemplates"));
                   auto* sum = dialog.findChild<QLineEdit*>(QStringLiteral("txtSuma"));
                   ASSERT_TRUE(tree && sum);
                   const QList<QTreeWidgetItem*> found =
                       tree->findItems(QStringLiteral("Prekių pirkimas su PVM"),
                                       Qt::MatchStartsWith | Qt::MatchRecursive);
                   ASSERT_FALSE(found.isEmpty());
                   tree->setCurrentItem(found.first());
                   QTest::keyClicks(sum, QStringLiteral("abc"));
                   ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
                   stayed = dialog.isVisible();
                   sum->clear();
                   QTest::keyClicks(sum, QStringLiteral("100,5"));
                   ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
               });
    EXPECT_EQ(caption, QStringLiteral(" Operacijos šablonai"));
    EXPECT_TRUE(stayed);
    const QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Warning);
    EXPECT_EQ(shown.first().Text, QStringLiteral("Klaidinga sumos reikšmė!"));
    EXPECT_TRUE(r.Chosen);
    EXPECT_EQ(r.TemplateOID, QStringLiteral("O0201600") + id);
    EXPECT_DOUBLE_EQ(r.Sum, 100.5);
}

TEST_F(TemplateFormsTest, ADoubleClickOnATemplateChoosesIt) {
    const QString id = TemplateId(QStringLiteral("Grynųjų įnešimas į banką"));
    QString selected;
    const TemplateChoiceResult r =
        Choose(nullptr, session_->Forms()->CreateForm(QStringLiteral("frmBROperTemplateSelect")),
               [&](QDialog& dialog) {
                   auto* tree = dialog.findChild<QTreeWidget*>(QStringLiteral("trwTemplates"));
                   auto* sum = dialog.findChild<QLineEdit*>(QStringLiteral("txtSuma"));
                   const QList<QTreeWidgetItem*> found =
                       tree->findItems(QStringLiteral("Grynųjų įnešimas į banką"),
                                       Qt::MatchStartsWith | Qt::MatchRecursive);
                   ASSERT_FALSE(found.isEmpty());
                   tree->setCurrentItem(found.first());
                   selected = dialog.findChild<QLineEdit*>(QStringLiteral("txtSelect"))->text();
                   QTest::keyClicks(sum, QStringLiteral("20"));
                   Q_EMIT tree->itemDoubleClicked(found.first(), 0);
               });
    EXPECT_TRUE(selected.startsWith(QStringLiteral("Grynųjų įnešimas į banką")));
    EXPECT_TRUE(r.Chosen);
    EXPECT_EQ(r.TemplateID, id.toLongLong());
    EXPECT_DOUBLE_EQ(r.Sum, 20.0);
}

TEST_F(TemplateFormsTest, CancellingTheChooserChoosesNothing) {
    const TemplateChoiceResult r = Choose(
        nullptr, session_->Forms()->CreateForm(QStringLiteral("frmBROperTemplateSelect")),
        [](QDialog& dialog) { ui::DialogDriver::Click(dialog, QStringLiteral("cmdCancel")); });
    EXPECT_FALSE(r.Chosen);
}

TEST_F(TemplateFormsTest, AnOperationOfAGroupIsOfferedTheGroupsTemplatesWithItsPresetChosen) {
    RegisterGroupClasses();
    const QString cash = TemplateId(QStringLiteral("Kasos operacijos"));
    const QString preset = TemplateId(QStringLiteral("Grynųjų paėmimas iš banko"));
    const host::ExecResult made = session_->Db().Execute(
        QStringLiteral("INSERT INTO BROperGroups (Name, FormOID, BRTemplateID, DefaultTemplateID) "
                       "VALUES ('Kasos grupė', 'O0201500', ?, ?)"),
        {Value(cash.toDouble()), Value(preset.toDouble())});
    ASSERT_TRUE(made.ok()) << made.Text.toStdString();
    const QString group = Scalar(QStringLiteral("SELECT ID FROM BROperGroups WHERE Name = ?"),
                                 {Value(QStringLiteral("Kasos grupė"))});
    const OrvoObjectUIOPtr operation = Object(QStringLiteral("O0201500"));
    ASSERT_TRUE(operation);
    operation->SetField(QStringLiteral("BROperGroupID"), Value(group.toDouble()));
    QString caption;
    QString selected;
    QStringList names;
    const TemplateChoiceResult r =
        Choose(operation, session_->Forms()->CreateForm(QStringLiteral("frmBROperTemplateSelect")),
               [&](QDialog& dialog) {
                   caption = dialog.windowTitle();
                   auto* tree = dialog.findChild<QTreeWidget*>(QStringLiteral("trwTemplates"));
                   for (QTreeWidgetItemIterator it(tree); *it; ++it)
                       names << (*it)->text(0);
                   selected = dialog.findChild<QLineEdit*>(QStringLiteral("txtSelect"))->text();
                   QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("txtSuma")),
                                    QStringLiteral("7"));
                   ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
               });
    EXPECT_EQ(caption, QStringLiteral("Grupės operacijų šablonai :"));
    EXPECT_TRUE(names.contains(QStringLiteral("Grynųjų įnešimas į banką")));
    EXPECT_FALSE(names.contains(QStringLiteral("Prekių pardavimas su PVM")));
    EXPECT_EQ(selected, QStringLiteral("Grynųjų paėmimas iš banko"));
    EXPECT_TRUE(r.Chosen);
    EXPECT_EQ(r.TemplateID, preset.toLongLong());
    EXPECT_DOUBLE_EQ(r.Sum, 7.0);
}

} // namespace

} // namespace orvo::accounts_forms::testing
