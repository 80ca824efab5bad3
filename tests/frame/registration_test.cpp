#include "frame/dll_header.h"
#include "frame/icon_resources.h"
#include "frame/layout_resource_strings.h"
#include "frame/plain_layout.h"
#include "frame/security_header.h"
#include "frame_doubles.h"

#include <gtest/gtest.h>

using namespace orvo;
using Row = PlainLayout::Row;

namespace {

QList<Row> registered() {
    PlainLayout layout;
    const ResultRecord r = DLLHeader().DllInicialize(layout);
    EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
    return layout.Rows();
}

QStringList args(std::initializer_list<const char*> list) {
    QStringList out;
    for (const char* a : list)
        out.append(QString::fromUtf8(a));
    return out;
}

} // namespace

TEST(DllInicialize, RootKeyAndCodeAreBothTheLayoutCodeUnderItsRightKey) {
    const QList<Row> rows = registered();
    ASSERT_FALSE(rows.isEmpty());
    EXPECT_EQ(rows.first(), (Row{"AddLayout", args({"L02020011", "L02020011",
                                                    "Buhalterinė apskaita", "CBookLayout"})}));
}

TEST(DllInicialize, RootTreeIconIsKeyedByTheLayoutCodeButDrawnFromLayoutResource) {
    PlainLayout layout;
    ASSERT_TRUE(DLLHeader().DllInicialize(layout).ok());
    const QList<Row> tree = layout.RowsOf("AddTreeIcon");
    ASSERT_FALSE(tree.isEmpty());
    EXPECT_EQ(tree.first().Arguments, args({"L02020011", "LAYOUT"}));
    EXPECT_TRUE(IconResources::Component().Contains("LAYOUT"));
    EXPECT_FALSE(IconResources::Component().Contains("L02020011"));
}

TEST(DllInicialize, JournalsKeyC0200500ExistsOnlyAsKeyServedByPictureOfC0200500J) {
    PlainLayout layout;
    ASSERT_TRUE(DLLHeader().DllInicialize(layout).ok());
    int found = 0;
    for (const Row& r : layout.RowsOf("AddIcon")) {
        if (r.Arguments.at(0) == "C0200500") {
            EXPECT_EQ(r.Arguments.at(1), "C0200500J");
            ++found;
        }
    }
    EXPECT_EQ(found, 1);
    EXPECT_FALSE(IconResources::Component().Contains("C0200500"));
}

TEST(DllInicialize, KeyC0202000OfAForeignClassCarriesPictureOfC0201500) {
    PlainLayout layout;
    ASSERT_TRUE(DLLHeader().DllInicialize(layout).ok());
    for (const QString& op : {QString("AddIcon"), QString("AddTreeIcon")}) {
        bool seen = false;
        for (const Row& r : layout.RowsOf(op)) {
            if (r.Arguments.at(0) == "C0202000") {
                EXPECT_EQ(r.Arguments.at(1), "C0201500") << op.toStdString();
                seen = true;
            }
        }
        EXPECT_TRUE(seen) << op.toStdString();
    }
    for (const DLLHeader::ObjectClass& c : DLLHeader::ObjectClasses())
        EXPECT_NE(c.Code, "O0202000");
    EXPECT_FALSE(IconResources::Component().Contains("C0202000"));
}

TEST(DllInicialize, EveryCallInOrder) {
    const QList<Row> expected = {
        {"AddLayout", args({"L02020011", "L02020011", "Buhalterinė apskaita", "CBookLayout"})},
        {"AddNode",
         args({"L02020011", "O0201400", "Finansinių operacijų apskaita", "CBROperRights"})},
        {"SetObject", args({"O0201400", "O0201400"})},
        {"AddNode", args({"L02020011", "O0202100", "Komandiruotės", "CBusinessTrips"})},
        {"SetObject", args({"O0202100", "O0202100"})},
        {"AddNode", args({"L02020011", "O0200500", "Žurnalai", "O0200500"})},
        {"SetObject", args({"O0200500", "O0200500"})},
        {"AddNode",
         args({"L02020011", "O0001900", "Papildomos ataskaitos", "COrvoReportLockO0200500"})},
        {"SetObject", args({"O0001900", "O0001900<%>O0200500<%>"})},
        {"AddNode",
         args({"L02020011", "O0201600", "Finansinių operacijų šablonai", "CTemplatesLock"})},
        {"SetObject", args({"O0201600", "O0201600"})},
        {"AddNode", args({"L02020011", "O0200400", "Sąskaitų planas", ""})},
        {"SetObject", args({"O0200400", "O0200400"})},
        {"SetCatalogue", args({"O0200400", "-1"})},
        {"AddNode", args({"L02020011", "O0000100", "Įmonės", "CFirms"})},
        {"SetObject", args({"O0000100", "O0000100"})},
        {"SetCatalogue", args({"O0000100", "-1"})},
        {"AddNode", args({"L02020011", "CO0001400", "Fiziniai asmenys", "CPerson"})},
        {"SetObject", args({"CO0001400", "O0001402"})},
        {"SetCatalogue", args({"CO0001400", "-1"})},
        {"AddNode", args({"L02020011", "O0000300", "Bankai", "CBanks"})},
        {"SetObject", args({"O0000300", "O0000300"})},
        {"SetCatalogue", args({"O0000300", "-1"})},
        {"AddNode", args({"L02020011", "O0002200", "Valiuta", "CCurrency"})},
        {"SetObject", args({"O0002200", "O0002200"})},
        {"SetCatalogue", args({"O0002200", "-1"})},
        {"AddNode", args({"L02020011", "O0201700", "Apmokėjimo šablonai", "CPaymentPlan"})},
        {"SetObject", args({"O0201700", "O0201700"})},
        {"AddNode",
         args({"L02020011", "O0005000", "Spausdintinių dokumentų šablonai ir dokumentai", ""})},
        {"SetObject",
         args({"O0005000", "O0005000MULTI_CATALOGUE|O0005000#CONTRACTTEMPLATES##Finansines "
                           "operacijos#O0201500%"})},
        {"SetCatalogue", args({"O0005000", "-1"})},
        {"AddMainObjectClass", args({"KontavoUI", "O0200400", "Sąskaitų planas"})},
        {"AddObjectClass",
         args({"KontavoUI", "O0200500", "Finansinių operacijų ir balansinių sąskaitų žurnalai"})},
        {"AddObjectClass", args({"KontavoUI", "O0201300", "Sąskaitų blokavimas"})},
        {"AddObjectClass", args({"KontavoUI", "O0201400", "Finansinių operacijų apskaita"})},
        {"AddObjectClass", args({"KontavoUI", "O0201500", "Finansinės operacijos"})},
        {"AddObjectClass", args({"KontavoUI", "O0201600", "Finansinių operacijų šablonai"})},
        {"AddObjectClass", args({"KontavoUI", "O0201700", "Apmokėjimo šablonai"})},
        {"AddIcon", args({"C0200400", "C0200400"})},
        {"AddIcon", args({"C0200300", "C0200300"})},
        {"AddIcon", args({"C0200500J", "C0200500J"})},
        {"AddIcon", args({"C0200500", "C0200500J"})},
        {"AddIcon", args({"C0201300", "C0201300"})},
        {"AddIcon", args({"C0201400", "C0201400"})},
        {"AddIcon", args({"C0201500", "C0201500"})},
        {"AddIcon", args({"C0201501", "C0201501"})},
        {"AddIcon", args({"C0201502", "C0201502"})},
        {"AddIcon", args({"C0201503", "C0201503"})},
        {"AddIcon", args({"C0201504", "C0201504"})},
        {"AddIcon", args({"C0201505", "C0201505"})},
        {"AddIcon", args({"C0201506", "C0201506"})},
        {"AddIcon", args({"C0201600", "C0201600"})},
        {"AddIcon", args({"C0202000", "C0201500"})},
        {"AddTreeIcon", args({"L02020011", "LAYOUT"})},
        {"AddTreeIcon", args({"C0200500J", "C0200500J"})},
        {"AddTreeIcon", args({"C0200500G", "C0200500G"})},
        {"AddTreeIcon", args({"C0200400", "C0200400"})},
        {"AddTreeIcon", args({"C0200300", "C0200300"})},
        {"AddTreeIcon", args({"C0201300", "C0201300"})},
        {"AddTreeIcon", args({"C0201400", "C0201400"})},
        {"AddTreeIcon", args({"C0201500", "C0201500"})},
        {"AddTreeIcon", args({"C0201501", "C0201501"})},
        {"AddTreeIcon", args({"C0201502", "C0201502"})},
        {"AddTreeIcon", args({"C0201503", "C0201503"})},
        {"AddTreeIcon", args({"C0201504", "C0201504"})},
        {"AddTreeIcon", args({"C0201505", "C0201505"})},
        {"AddTreeIcon", args({"C0201506", "C0201506"})},
        {"AddTreeIcon", args({"C0201600", "C0201600"})},
        {"AddTreeIcon", args({"C0202000", "C0201500"})},
        {"AddTreeIcon", args({"DOCUMENT_CHECK", "DOCUMENT_CHECK"})},
        {"AddTreeIcon", args({"DOCUMENT_ERROR", "DOCUMENT_ERROR"})},
    };
    const QList<Row> rows = registered();
    ASSERT_EQ(rows.size(), expected.size());
    for (int i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows.at(i).Operation, expected.at(i).Operation) << "row " << i;
        EXPECT_EQ(rows.at(i).Arguments, expected.at(i).Arguments) << "row " << i;
    }
}

TEST(DllInicialize, TwelveNodesAndSevenClasses) {
    const QList<Row> rows = registered();
    int nodes = 0, mains = 0, classes = 0;
    for (const Row& r : rows) {
        nodes += r.Operation == "AddNode";
        mains += r.Operation == "AddMainObjectClass";
        classes += r.Operation == "AddObjectClass";
    }
    EXPECT_EQ(nodes, 12);
    EXPECT_EQ(mains, 1);
    EXPECT_EQ(classes, 6);
}

TEST(DllInicialize, MissingIconResourceFailsTheCallAndAddsNothing) {
    IconResources resources = IconResources::Component();
    ASSERT_TRUE(resources.Remove("C0201503"));
    PlainLayout layout;
    const ResultRecord r = DLLHeader(resources).DllInicialize(layout);
    EXPECT_NE(r.Code, 0);
    EXPECT_TRUE(r.Text.contains("C0201503")) << r.Text.toStdString();
    EXPECT_TRUE(layout.Rows().isEmpty());
}

TEST(DllInicialize, MissingLayoutPictureFailsTheCall) {
    IconResources resources = IconResources::Component();
    ASSERT_TRUE(resources.Remove("LAYOUT"));
    PlainLayout layout;
    const ResultRecord r = DLLHeader(resources).DllInicialize(layout);
    EXPECT_NE(r.Code, 0);
    EXPECT_TRUE(r.Text.contains("LAYOUT"));
}

TEST(IconResources, ComponentCarriesEveryNamedResourceWithItsPath) {
    const IconResources table = IconResources::Component();
    for (const char* name :
         {"C0200100",       "C0200200",      "C0200300", "C0200400",     "C0200500J", "C0200500G",
          "C0200500JO",     "C0200700",      "C0200900", "C0201000",     "C0201200",  "C0201300",
          "C0201400",       "C0201500",      "C0201501", "C0201502",     "C0201503",  "C0201504",
          "C0201505",       "C0201506",      "C0201600", "A02020011001", "SYSTEM",    "LAYOUT",
          "DOCUMENT_CHECK", "DOCUMENT_ERROR"})
        EXPECT_TRUE(table.Contains(name)) << name;
    EXPECT_EQ(table.Count(), 26);
    EXPECT_EQ(table.Path("C0201500"), ":/icons/C0201500.png");
    EXPECT_EQ(table.Path("NOPE"), "");
}

TEST(GetComponentList, SixteenRightsInOrder) {
    const QList<ComponentRight> expected = {
        {"", "DLL|L02020011", "Buhalterinė apskaita", 10},
        {"", "CBookLayout", "Aplinkos peržūra", 2},
        {"", "CAllAccLock", "Sąskaitų blokavimas", 1},
        {"", "CBROperGroupRights", "Finansinių operacijų grupių tvarkymas", 2},
        {"", "CBROperRights", "Finansinių operacijų tvarkymas", 2},
        {"", "O0200500", "Žurnalai", 2},
        {"O0200500", "O0200502", "Sąskaitos žurnalas", 2},
        {"O0200500", "O0200503", "Suvestinis sąskaitų žurnalas", 2},
        {"O0200500", "O0200501", "Finansinių operacijų žurnalas", 2},
        {"O0200500", "O0200504", "Finansinės atskaitomybės formos", 2},
        {"O0200500", "O0200505", "Pardavimų ir pirkimų žurnalai", 2},
        {"O0200500", "O0200506", "Pinigų gavimų ir mokėjimų žurnalai", 2},
        {"O0200500", "O0200508", "Sąskaitos apyvartos žurnalas", 2},
        {"O0200500", "O0200509", "Valiutų kursų žurnalai", 2},
        {"", "CTemplatesLock", "Finansinių operacijų šablonų tvarkymas", 2},
        {"", "CAccountPlanRights", "Sąskaitos plano tvarkymas", 1},
    };
    const QList<ComponentRight> rows = SecurityHeader().GetComponentList();
    ASSERT_EQ(rows.size(), 16);
    for (int i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows.at(i).ParentKey, expected.at(i).ParentKey) << "row " << i;
        EXPECT_EQ(rows.at(i).Key, expected.at(i).Key) << "row " << i;
        EXPECT_EQ(rows.at(i).Title, expected.at(i).Title) << "row " << i;
        EXPECT_EQ(rows.at(i).Kind, expected.at(i).Kind) << "row " << i;
    }
}

TEST(GetComponentList, OnlyTheHeaderKeyHoldsABar) {
    for (const ComponentRight& r : SecurityHeader().GetComponentList())
        EXPECT_EQ(r.Key.contains('|'), r.Kind == ComponentRight::Header) << r.Key.toStdString();
}

TEST(GetComponentList, EveryCallGivesANewList) {
    SecurityHeader header;
    QList<ComponentRight> first = header.GetComponentList();
    first.removeFirst();
    EXPECT_EQ(header.GetComponentList().size(), 16);
}

TEST(LayoutResourceStrings, RowsNumberedFrom10000InOrder) {
    const QList<ResourceString> rows = LayoutResourceStrings::Rows();
    const QStringList texts = {
        "B_L02020011||-1",
        "N_L02020011Obj|B_L02020011|503",
        "C_BAccounts|N_L02020011Obj|51",
        "B_BJournals|N_L02020011Obj|52",
        "B_BJournalCFG|B_BJournals|54",
        "B_BJournalEnter|B_BJournals|500",
        "B_BJournalPrint|B_BJournals|501",
        "B_BookMain|N_L02020011Obj|53",
        "B_BMainCGF|B_BookMain|59",
        "C_BMainPrint|B_BookMain|502",
        "B_BMainAnaliz|B_BookMain|58",
    };
    ASSERT_EQ(rows.size(), texts.size());
    for (int i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows.at(i).Id, 10000 + i);
        EXPECT_EQ(rows.at(i).Text, texts.at(i));
    }
    EXPECT_EQ(LayoutResourceStrings::Text(10003), "B_BJournals|N_L02020011Obj|52");
    EXPECT_EQ(LayoutResourceStrings::Text(9999), "");
}
