// UI0201600 with the real host on both backends: the icon table, the menus of the root,
// of a group and of a template, the clicks with and without the windows they need, and
// the rows of the printed list. The factor rule of the entry editor stands alone.
#include "template_fixture.h"

#include "accounts/template_rules.h"

namespace orvo {
namespace {

using accounts_testing::TemplateTest;

class TemplateNavigatorTest : public TemplateTest {
protected:
    static QStringList Captions(const MenuItems& menu) {
        QStringList out;
        for (const MenuItem& m : menu)
            out << m.Key + QLatin1Char(' ') + m.Caption;
        return out;
    }
};

TEST_P(TemplateNavigatorTest, IconsTableMapsEveryRowKind) {
    const IconMappings expected = {{QStringLiteral("Item"), QStringLiteral("C0201600")},
                                   {QStringLiteral("C"), QStringLiteral("C0201600")},
                                   {QStringLiteral("Group"), QStringLiteral("stdClose")},
                                   {QStringLiteral("Root"), QStringLiteral("stdClose")},
                                   {QStringLiteral("ORoot"), QStringLiteral("stdOpen")}};
    EXPECT_EQ(templates_->GetIconsTable(), expected);
}

TEST_P(TemplateNavigatorTest, MenusOfRootGroupAndTemplate) {
    const qint64 g = AddGroup(0, QStringLiteral("Kasa"));
    const qint64 t = AddTemplate(g, QStringLiteral("Pajamos"), {"2720 5000 1"});
    EXPECT_EQ(Captions(templates_->GetMenu(UIO0201600::kCode, QStringLiteral("Root"), QString())),
              (QStringList{"1 Naują šablonų grupė", "5 Spausdinti", "7 Atrinkti"}));
    EXPECT_EQ(Captions(templates_->GetMenu(QStringLiteral("O0201600%1").arg(g),
                                           QStringLiteral("Group"), QString())),
              (QStringList{"2 Padėti ant darbo stalo", "3 Naujas pogrupis", "4 Naujas šablonas",
                           "5 Spausdinti", "6 Panaikinti", "7 Atrinkti"}));
    const QStringList item = {"2 Padėti ant darbo stalo", "5 Spausdinti", "6 Panaikinti",
                              "7 Atrinkti"};
    EXPECT_EQ(Captions(templates_->GetMenu(QStringLiteral("O0201600%1").arg(t),
                                           QStringLiteral("Item"), QString())),
              item);
    // Without the row kind the record itself tells a group from a template.
    EXPECT_EQ(
        Captions(templates_->GetMenu(QStringLiteral("O0201600%1").arg(t), QString(), QString())),
        item);
    EXPECT_EQ(
        Captions(templates_->GetMenu(QStringLiteral("O0201600%1").arg(g), QString(), QString()))
            .size(),
        6);
}

TEST_P(TemplateNavigatorTest, ObjectListShowsTheNodesRecords) {
    const qint64 g = AddGroup(0, QStringLiteral("Kasa"));
    AddTemplate(g, QStringLiteral("Pajamos"), {"2720 5000 1"});
    AddTemplate(0, QStringLiteral("Atskiras"), {});
    EXPECT_EQ(Rows(templates_->GetOrvoObjectList(UIO0201600::kCode, QString(), QString()),
                   {"OType", "Preview"}),
              QStringList({"Group|Kasa", "Item|Atskiras"}));
    EXPECT_EQ(Rows(templates_->GetOrvoObjectList(QStringLiteral("O0201600%1").arg(g), QString(),
                                                 QString()),
                   {"OType", "Preview"}),
              QStringList({"Item|Pajamos"}));
}

TEST_P(TemplateNavigatorTest, NewTemplateInAGroupOpensTheEditor) {
    const qint64 g = AddGroup(0, QStringLiteral("Kasa"));
    const QString oid = QStringLiteral("O0201600%1").arg(g);
    // Without the window the click is refused in words.
    ClickResult r = templates_->ClickMenu(oid, QString(), UI0201600::kNewTemplate, QString());
    EXPECT_EQ(r.Action, ClickResult::Nothing);
    EXPECT_EQ(Shown(), QStringList({UI0201600::NoFormText(QStringLiteral("frmBRTemplate"))}));

    RegisterForm(QStringLiteral("frmBRTemplate"));
    r = templates_->ClickMenu(oid, QString(), UI0201600::kNewTemplate, QString());
    ASSERT_EQ(r.Action, ClickResult::ShowForm);
    const auto form = std::dynamic_pointer_cast<OrvoForm>(r.Payload.toObject());
    ASSERT_TRUE(form);
    EXPECT_EQ(form->FormName(), QStringLiteral("frmBRTemplate"));
    EXPECT_EQ(form->ClickedParameters(), QStringLiteral("N") + oid);
    const OrvoObjectUIOPtr object = form->GetOrvoObjectUIO();
    ASSERT_TRUE(object);
    EXPECT_EQ(static_cast<qint64>(object->Field(QStringLiteral("ParentID")).toDouble()), g);
    EXPECT_FALSE(object->Field(QStringLiteral("GroupFlag")).toBool());

    r = templates_->ClickMenu(UIO0201600::kCode, QString(), UI0201600::kNewGroup, QString());
    ASSERT_EQ(r.Action, ClickResult::ShowForm);
    const OrvoObjectUIOPtr group =
        std::dynamic_pointer_cast<OrvoForm>(r.Payload.toObject())->GetOrvoObjectUIO();
    EXPECT_TRUE(group->Field(QStringLiteral("ParentID")).isNull());
    EXPECT_TRUE(group->Field(QStringLiteral("GroupFlag")).toBool());
    r = templates_->ClickMenu(oid, QString(), UI0201600::kNewSubgroup, QString());
    const OrvoObjectUIOPtr sub =
        std::dynamic_pointer_cast<OrvoForm>(r.Payload.toObject())->GetOrvoObjectUIO();
    EXPECT_EQ(static_cast<qint64>(sub->Field(QStringLiteral("ParentID")).toDouble()), g);
    EXPECT_TRUE(sub->Field(QStringLiteral("GroupFlag")).toBool());
}

TEST_P(TemplateNavigatorTest, DeleteAsksAndRemovesAGroupWithWhatItHolds) {
    const qint64 g = AddGroup(0, QStringLiteral("Kasa"));
    AddTemplate(g, QStringLiteral("Pajamos"), {"2720 5000 1"});
    const QString oid = QStringLiteral("O0201600%1").arg(g);
    session_->Messages()->QueueAnswer(false);
    templates_->ClickMenu(oid, QString(), UI0201600::kDelete, QString());
    EXPECT_TRUE(Template(g));
    session_->Messages()->QueueAnswer(true);
    templates_->ClickMenu(oid, QString(), UI0201600::kDelete, QString());
    EXPECT_FALSE(Template(g));
    EXPECT_EQ(session_->Db()
                  .Query(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAcc"))
                  .Scalar()
                  .toInt32(),
              0);
    EXPECT_EQ(Shown(), QStringList({QStringLiteral("Ar tikrai norite panaikinti?"),
                                    QStringLiteral("Ar tikrai norite panaikinti?")}));
}

TEST_P(TemplateNavigatorTest, PrintWithoutTheReportIsRefusedAndItsRowsWalkEveryGroup) {
    const qint64 kasa = AddGroup(0, QStringLiteral("Kasa"));
    AddTemplate(kasa, QStringLiteral("Pajamos"), {"2720 5000 1", "2720 4492 0.21"});
    const qint64 sub = AddGroup(kasa, QStringLiteral("Avansai"));
    AddTemplate(sub, QStringLiteral("Išmoka"), {"2450 2720 1"});
    AddGroup(0, QStringLiteral("Bankas"));
    AddTemplate(0, QStringLiteral("Atskiras"), {});

    const ClickResult r =
        templates_->ClickMenu(UIO0201600::kCode, QString(), UI0201600::kPrint, QString());
    EXPECT_EQ(r.Action, ClickResult::Nothing);
    EXPECT_EQ(Shown(), QStringList({UI0201600::NoFormText(QStringLiteral("ActRepTemplates"))}));

    QString error;
    const RecordsetPtr all = TemplatePrintRows(templates_->BO(), QStringLiteral("ALL"), &error);
    ASSERT_TRUE(all) << error.toStdString();
    EXPECT_EQ(Rows(all, {"Pav", "Debit", "Kredit", "Factor", "GroupFlag"}),
              QStringList({"Bankas||||1", "Kasa||||1", "Avansai||||1", "Išmoka|2450|2720|1|0",
                           "Pajamos|2720|5000|1|0", "|2720|4492|0.21|0", "Atskiras||||0"}));
    const RecordsetPtr one = TemplatePrintRows(templates_->BO(), QString::number(sub), &error);
    ASSERT_TRUE(one) << error.toStdString();
    EXPECT_EQ(Rows(one, {"Pav", "Debit"}), QStringList({"Avansai|", "Išmoka|2450"}));
}

ORVO_STORAGE_BACKENDS(TemplateNavigatorTest);

TEST(TemplateFactorRule, FactorEmptyOrNegativeBecomesOne) {
    EXPECT_EQ(TemplateFactorText(QString()), QStringLiteral("1"));
    EXPECT_EQ(TemplateFactorText(QStringLiteral("  ")), QStringLiteral("1"));
    EXPECT_EQ(TemplateFactorText(QStringLiteral("-0,5")), QStringLiteral("1"));
    EXPECT_EQ(TemplateFactorText(QStringLiteral("-2")), QStringLiteral("1"));
    EXPECT_DOUBLE_EQ(TemplateFactorValue(QStringLiteral("-2")), 1.0);
    EXPECT_DOUBLE_EQ(TemplateFactorValue(QString()), 1.0);
}

TEST(TemplateFactorRule, FactorBelowOneHundredthBecomesOneAndOthersStay) {
    EXPECT_EQ(TemplateFactorText(QStringLiteral("0")), QStringLiteral("1"));
    EXPECT_EQ(TemplateFactorText(QStringLiteral("0,009")), QStringLiteral("1"));
    EXPECT_EQ(TemplateFactorText(QStringLiteral("abc")), QStringLiteral("1"));
    EXPECT_EQ(TemplateFactorText(QStringLiteral("0,01")), QStringLiteral("0,01"));
    EXPECT_EQ(TemplateFactorText(QStringLiteral("0,21")), QStringLiteral("0,21"));
    EXPECT_DOUBLE_EQ(TemplateFactorValue(QStringLiteral("0,21")), 0.21);
    EXPECT_DOUBLE_EQ(TemplateFactorValue(QStringLiteral("1.5")), 1.5);
}

TEST(TemplateAccountShown, OpeningBalancesKnownAndUnknownAccounts) {
    auto accounts =
        Recordset::Create({FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar),
                           FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar)});
    accounts->AddNew();
    accounts->SetField(QStringLiteral("Account"), QStringLiteral("2410"));
    accounts->SetField(QStringLiteral("Name"), QStringLiteral("Pirkėjų skolos"));
    accounts->Update();
    const TemplateAccountShown known = ShowTemplateAccount(accounts, QStringLiteral("2410"));
    EXPECT_EQ(known.Mark, QString());
    EXPECT_EQ(known.Name, QStringLiteral("Pirkėjų skolos"));
    const TemplateAccountShown zero = ShowTemplateAccount(accounts, QStringLiteral("0"));
    EXPECT_EQ(zero.Name, QStringLiteral("Pradiniai likučiai"));
    const TemplateAccountShown gone = ShowTemplateAccount(accounts, QStringLiteral("2420"));
    EXPECT_EQ(gone.Account, QStringLiteral("2420"));
    EXPECT_EQ(gone.Mark, QStringLiteral("*"));
    EXPECT_EQ(gone.Name, QStringLiteral("Nežinoma sąskaita"));
}

} // namespace
} // namespace orvo
