// What the templates' windows decide, checked without their widgets: the chooser's
// caption and its answer, and what the entry's editor writes into the template.
#include "forms_fixture.h"

#include "accounts/account_plan_print.h"
#include "accounts/template_choice.h"
#include "accounts/template_editor.h"
#include "accounts/template_entry_editor.h"
#include "accounts/template_object.h"

namespace orvo::accounts_forms::testing {

namespace {

class TemplateRulesOfWindowsTest : public FormsTest {
protected:
    QString TemplateId(const QString& name) {
        return Scalar(QStringLiteral("SELECT ID FROM BRTemplates WHERE Name = ?"), {Value(name)});
    }
};

TEST_F(TemplateRulesOfWindowsTest, TheChooserIsCaptionedByWhetherTheOperationHasAGroup) {
    EXPECT_EQ(TemplateChoice::Caption(false), QStringLiteral(" Operacijos šablonai"));
    EXPECT_EQ(TemplateChoice::Caption(true), QStringLiteral("Grupės operacijų šablonai :"));
}

TEST_F(TemplateRulesOfWindowsTest, TheChooserAnswersATemplateAndASumButNotAGroup) {
    TemplateChoice choice;
    ASSERT_TRUE(choice.Load(nullptr).ok());
    EXPECT_FALSE(choice.HasGroup());
    const qint64 group = TemplateId(QStringLiteral("Kasos operacijos")).toLongLong();
    const qint64 one = TemplateId(QStringLiteral("Grynųjų paėmimas iš banko")).toLongLong();
    EXPECT_FALSE(choice.IsTemplate(group));
    EXPECT_TRUE(choice.IsTemplate(one));
    EXPECT_FALSE(choice.Accept(group, QStringLiteral("10")));
    EXPECT_TRUE(Boxes().isEmpty());
    EXPECT_FALSE(choice.Result().Chosen);
    EXPECT_FALSE(choice.Accept(one, QStringLiteral("10 eurų")));
    const QList<ui::ShownMessage> shown = Boxes();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Text, TemplateChoice::BadSumText());
    EXPECT_TRUE(choice.Accept(one, QStringLiteral("12,34")));
    EXPECT_EQ(choice.Result().TemplateOID, QStringLiteral("O0201600") + QString::number(one));
    EXPECT_DOUBLE_EQ(choice.Result().Sum, 12.34);
}

TEST_F(TemplateRulesOfWindowsTest, ANewEntryTakesANewGuidAndTheTemplatesAndAnEmptyFactorIsOne) {
    const OrvoObjectUIOPtr object = Object(QStringLiteral("O0201600") +
                                           TemplateId(QStringLiteral("Grynųjų paėmimas iš banko")));
    ASSERT_TRUE(object);
    TemplateEntryEditor editor(object, QString());
    ASSERT_TRUE(editor.Load().ok());
    EXPECT_EQ(editor.AccountItems().value(0), QStringLiteral("0 Pradiniai likučiai"));
    editor.AccountDText = QStringLiteral("2720 Kasa");
    editor.AccountCText = QStringLiteral("0 Pradiniai likučiai");
    editor.FactorText = QString();
    ASSERT_TRUE(editor.Write().ok());
    EXPECT_EQ(editor.FactorText, QStringLiteral("1"));
    const RecordsetPtr acc = object->Field(QStringLiteral("BRTemplateAcc")).toRecordset();
    ASSERT_EQ(acc->RecordCount(), 2);
    acc->MoveLast();
    EXPECT_EQ(acc->Field(QStringLiteral("GUID")).toString(), editor.EntryGuid());
    EXPECT_EQ(acc->Field(QStringLiteral("BRTemplateGUID")).toString(),
              object->Field(QStringLiteral("GUID")).toString());
    EXPECT_EQ(acc->Field(QStringLiteral("AccountD")).toString(), QStringLiteral("2720"));
    EXPECT_EQ(acc->Field(QStringLiteral("AccountC")).toString(), QStringLiteral("0"));
    EXPECT_DOUBLE_EQ(acc->Field(QStringLiteral("Factor")).toDouble(), 1.0);
    TemplateEditor templ(object);
    ASSERT_TRUE(templ.Load().ok());
    ASSERT_TRUE(templ.Save().ok());
    EXPECT_EQ(Scalar(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAcc WHERE AccountC = '0' AND "
                                    "AccountD = '2720'")),
              QStringLiteral("1"));
}

TEST_F(TemplateRulesOfWindowsTest, ATemplateIsNeverPutIntoItselfAsItsGroup) {
    const QString id = TemplateId(QStringLiteral("Kasos operacijos"));
    TemplateEditor editor(Object(QStringLiteral("O0201600") + id));
    ASSERT_TRUE(editor.Load().ok());
    EXPECT_FALSE(editor.TakeGroup(QStringLiteral("O0201600") + id + QStringLiteral("_Kasos")));
    EXPECT_FALSE(editor.TakeGroup(QStringLiteral("O0200401") + id + QStringLiteral("_Kasa")));
    EXPECT_FALSE(editor.Changed());
}

TEST_F(TemplateRulesOfWindowsTest, ThePrintedChartHoldsEveryRowAndLeavesAClassWithoutType) {
    QString error;
    const RecordsetPtr rows = AccountPlanPrintRows(session_->BO(), QStringLiteral("All"), &error);
    ASSERT_TRUE(rows) << error.toStdString();
    EXPECT_EQ(QString::number(rows->RecordCount()),
              Scalar(QStringLiteral("SELECT COUNT(*) FROM Accounts")));
    rows->MoveFirst();
    EXPECT_TRUE(AccountPlanPrintIsClass(rows));
    EXPECT_EQ(AccountPlanPrintCells(rows),
              (QStringList{QStringLiteral("1"), QStringLiteral("Ilgalaikis turtas"), QString()}));
    EXPECT_FALSE(AccountPlanPrintRows(nullptr, QString(), &error));
    EXPECT_FALSE(error.isEmpty());
}

} // namespace

} // namespace orvo::accounts_forms::testing
