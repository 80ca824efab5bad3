// UI0200400 with the real host on both backends: its icon table, the menu of the root,
// of a class and of an account, the plan mode, and what the clicks do, with and without
// the windows they need.
#include "chart_fixture.h"

#include "core/recordset.h"
#include "host/session/host_objects_service.h"

namespace orvo {
namespace {

using accounts_testing::ChartTest;

class ChartNavigatorTest : public ChartTest {
protected:
    static QStringList Captions(const MenuItems& menu) {
        QStringList out;
        for (const MenuItem& m : menu)
            out << m.Key + QLatin1Char(' ') + m.Caption;
        return out;
    }
};

TEST_P(ChartNavigatorTest, IconsTableMapsEveryRowKind) {
    const IconMappings expected = {{QStringLiteral("Item"), QStringLiteral("C0200400")},
                                   {QStringLiteral("C"), QStringLiteral("C0200400")},
                                   {QStringLiteral("Class"), QStringLiteral("C0200300")},
                                   {QStringLiteral("Group"), QStringLiteral("stdClose")},
                                   {QStringLiteral("Root"), QStringLiteral("stdClose")},
                                   {QStringLiteral("ORoot"), QStringLiteral("stdOpen")}};
    EXPECT_EQ(navigator_->GetIconsTable(), expected);
}

TEST_P(ChartNavigatorTest, RootMenuOffersNewClassPrintAndPlans) {
    EXPECT_EQ(Captions(navigator_->GetMenu(QStringLiteral("O0200400"), QStringLiteral("Root"),
                                           QString())),
              (QStringList{QStringLiteral("1 &Nauja klasė"), QStringLiteral("3 Spausdinti"),
                           QStringLiteral("5 Sąskaitų planai"), QStringLiteral("4 &Atrinkti"),
                           QStringLiteral("8 Pagalba")}));
}

TEST_P(ChartNavigatorTest, ClassMenuOffersNewAccountAndAccountMenuNewSubaccount) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 acc = Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjai"));
    EXPECT_EQ(Captions(navigator_->GetMenu(QStringLiteral("O0200401%1").arg(cls),
                                           QStringLiteral("Class"), QString())),
              (QStringList{QStringLiteral("0 Padėti ant darbo stalo"),
                           QStringLiteral("1 &Nauja sąskaita"), QStringLiteral("7 Panaikinti"),
                           QStringLiteral("4 &Atrinkti"), QStringLiteral("8 Pagalba")}));
    EXPECT_EQ(Captions(navigator_->GetMenu(QStringLiteral("O0200401%1").arg(acc),
                                           QStringLiteral("Item"), QString())),
              (QStringList{QStringLiteral("0 Padėti ant darbo stalo"),
                           QStringLiteral("1 &Nauja subsąskaita"),
                           QStringLiteral("2 &Pervesti į žemesnės subsąskaitos lygį"),
                           QStringLiteral("7 Panaikinti"), QStringLiteral("4 &Atrinkti"),
                           QStringLiteral("8 Pagalba")}));
}

TEST_P(ChartNavigatorTest, OtherRootOffersConversionInsteadOfPlans) {
    const QStringList menu = Captions(
        navigator_->GetMenu(QStringLiteral("O0200402"), QStringLiteral("Root"), QString()));
    EXPECT_TRUE(menu.contains(QStringLiteral("6 Sąskaitų &konvertavimas")));
    EXPECT_FALSE(menu.contains(QStringLiteral("5 Sąskaitų planai")));
}

TEST_P(ChartNavigatorTest, PlanModeTogglesOnEachClickOfPlans) {
    EXPECT_EQ(navigator_->planMode(), QString());
    navigator_->ClickMenu(QStringLiteral("O0200400"), QString(), QStringLiteral("Sąskaitų planai"),
                          QStringLiteral("5"));
    EXPECT_EQ(navigator_->planMode(), QStringLiteral("FULL"));
    const MenuItems menu =
        navigator_->GetMenu(QStringLiteral("O0200400"), QStringLiteral("Root"), QString());
    bool checked = false;
    for (const MenuItem& m : menu)
        if (m.Caption == QStringLiteral("Sąskaitų planai"))
            checked = m.Checked;
    EXPECT_TRUE(checked);
    navigator_->ClickMenu(QStringLiteral("O0200400"), QString(), QStringLiteral("Sąskaitų planai"),
                          QStringLiteral("5"));
    EXPECT_EQ(navigator_->planMode(), QString());
}

TEST_P(ChartNavigatorTest, FullPlanModeIsHandedToTheListAsItsFilter) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 a = Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjai"));
    const qint64 b = Add(cls, QStringLiteral("2420"), QStringLiteral("Kiti"));
    OrvoObjectUIOPtr object = Object(a);
    object->SetField(QStringLiteral("NewID"), Value(double(b)));
    ASSERT_TRUE(object->Save().ok());
    const QString oid = QStringLiteral("O0200401%1").arg(cls);
    RecordsetPtr rows = navigator_->GetOrvoObjectList(oid, QString(), QString());
    rows->MoveFirst();
    EXPECT_EQ(rows->Field(QStringLiteral("Preview")).toString(), QStringLiteral("2410 Pirkėjai"));
    navigator_->ClickMenu(QStringLiteral("O0200400"), QString(), QStringLiteral("Sąskaitų planai"),
                          QStringLiteral("5"));
    rows = navigator_->GetOrvoObjectList(oid, QString(), QString());
    rows->MoveFirst();
    EXPECT_EQ(rows->Field(QStringLiteral("Preview")).toString(),
              QStringLiteral("2410 Pirkėjai → 2420"));
}

TEST_P(ChartNavigatorTest, NewAccountWithoutTheEditorIsRefusedClearly) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const ClickResult r =
        navigator_->ClickMenu(QStringLiteral("O0200401%1").arg(cls), QString(),
                              QStringLiteral("&Nauja sąskaita"), QStringLiteral("1"));
    EXPECT_EQ(r.Action, ClickResult::Nothing);
    EXPECT_EQ(Shown(), QStringList{UI0200400::NoFormText(QStringLiteral("frmAccountPlan"))});
}

TEST_P(ChartNavigatorTest, NewAccountOpensTheEditorUnderTheClickedNode) {
    RegisterForm(QStringLiteral("frmAccountPlan"));
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const QString oid = QStringLiteral("O0200401%1").arg(cls);
    ClickResult r = navigator_->ClickMenu(oid, QString(), QStringLiteral("&Nauja sąskaita"),
                                          QStringLiteral("1"));
    ASSERT_EQ(r.Action, ClickResult::ShowForm);
    auto form = std::dynamic_pointer_cast<OrvoForm>(r.Payload.toObject());
    ASSERT_TRUE(form);
    EXPECT_EQ(form->FormName(), QStringLiteral("frmAccountPlan"));
    ASSERT_TRUE(form->GetOrvoObjectUIO());
    EXPECT_EQ(
        static_cast<qint64>(form->GetOrvoObjectUIO()->Field(QStringLiteral("ParentID")).toDouble()),
        cls);
    EXPECT_LT(form->GetOrvoObjectUIO()->OIDR().size(), 9);
    // On the root the new record is a class.
    r = navigator_->ClickMenu(QStringLiteral("O0200400"), QString(), QStringLiteral("&Nauja klasė"),
                              QStringLiteral("1"));
    form = std::dynamic_pointer_cast<OrvoForm>(r.Payload.toObject());
    ASSERT_TRUE(form);
    EXPECT_TRUE(form->GetOrvoObjectUIO()->Field(QStringLiteral("ParentID")).isNull());
}

TEST_P(ChartNavigatorTest, MoveDownAsksFirstAndMovesOnlyOnOk) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 acc = Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjai"));
    const QString oid = QStringLiteral("O0200401%1").arg(acc);
    session_->Messages()->QueueAnswer(false);
    navigator_->ClickMenu(oid, QString(), UI0200400::kMoveDown, QStringLiteral("2"));
    EXPECT_EQ(navigator_->GetOrvoObjectList(oid, QString(), QString())->RecordCount(), 0);
    const QList<host::RecordedMessage> asked = session_->Messages()->Take();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().Text, UI0200400::MoveDownQuestion());
    EXPECT_TRUE(asked.first().Text.endsWith(
        QStringLiteral("neįmanoma. \nAr tikrai norite atlikti šį veiksmą?")));
    session_->Messages()->QueueAnswer(true);
    navigator_->ClickMenu(oid, QString(), UI0200400::kMoveDown, QStringLiteral("2"));
    EXPECT_EQ(navigator_->GetOrvoObjectList(oid, QString(), QString())->RecordCount(), 1);
}

TEST_P(ChartNavigatorTest, DeleteAsksAndReportsTheDeletion) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 acc = Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjai"));
    session_->Messages()->QueueAnswer(true);
    navigator_->ClickMenu(QStringLiteral("O0200401%1").arg(acc), QString(),
                          QStringLiteral("Panaikinti"), QStringLiteral("7"));
    EXPECT_EQ(Shown(), (QStringList{QStringLiteral("Ar tikrai norite panaikinti?"),
                                    QStringLiteral("Sąskaita panaikinta!")}));
    EXPECT_FALSE(Object(acc));
}

TEST_P(ChartNavigatorTest, DeletingAClassWithAccountsShowsWhyNot) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjai"));
    session_->Messages()->QueueAnswer(true);
    navigator_->ClickMenu(QStringLiteral("O0200401%1").arg(cls), QString(),
                          QStringLiteral("Panaikinti"), QStringLiteral("7"));
    const QStringList shown = Shown();
    ASSERT_EQ(shown.size(), 2);
    EXPECT_TRUE(shown.at(1).contains(QStringLiteral("subsąskaitų"))) << shown.at(1).toStdString();
    EXPECT_TRUE(Object(cls));
}

TEST_P(ChartNavigatorTest, PrintWithoutTheReportIsRefusedClearly) {
    const ClickResult r = navigator_->ClickMenu(QStringLiteral("O0200400"), QString(),
                                                QStringLiteral("Spausdinti"), QStringLiteral("3"));
    EXPECT_EQ(r.Action, ClickResult::Nothing);
    EXPECT_EQ(Shown(), QStringList{UI0200400::NoFormText(QStringLiteral("ActRepAccPlan"))});
}

TEST_P(ChartNavigatorTest, HelpShowsTheChartsPage) {
    navigator_->ClickMenu(QStringLiteral("O0200400"), QString(), QStringLiteral("Pagalba"),
                          QStringLiteral("8"));
    EXPECT_EQ(session_->ObjectsService()->Requests,
              QStringList{QStringLiteral("ShowHelp Orvo Apskaita help\\saskaituplanas.htm")});
}

ORVO_STORAGE_BACKENDS(ChartNavigatorTest);

} // namespace
} // namespace orvo
