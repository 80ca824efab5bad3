// The host's tree of the main window: its nodes come from the component's registration,
// child rows are read when a node opens, a screen at a time, menus come from the
// navigators' GetMenu, and the answers of ClickMenu are carried out.
#include "desktop_fixture.h"

#include "accounts/account_plan_navigator.h"
#include "frame/dll_header.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>

namespace orvo::ui::testing {

namespace {

const QString kChart = QStringLiteral("Sąskaitų planas");
const QString kFirms = QStringLiteral("Įmonės");

void pressKey(QWidget& widget, Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
}

// Answers the selection dialog with `text`, or cancels it when `text` is empty.
void answerSelection(const QString& text) {
    DialogDriver::Set([text](QDialog& dialog) {
        if (text.isEmpty()) {
            DialogDriver::Click(dialog, QStringLiteral("cmdCancel"));
            return;
        }
        dialog.findChild<QLineEdit*>(QStringLiteral("txtInput"))->setText(text);
        DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
}

} // namespace

TEST_F(DesktopTest, TreeShowsTheComponentsNodesUnderItsRootInRegistrationOrder) {
    // The component's branch comes first; the host's own branch follows it.
    ASSERT_EQ(Tree().topLevelItemCount(), 2);
    QTreeWidgetItem* root = Tree().topLevelItem(0);
    EXPECT_EQ(root->text(0), QStringLiteral("Buhalterinė apskaita"));
    QStringList expected;
    for (const DLLHeader::Node& node : DLLHeader::Nodes())
        expected.append(node.Title);
    EXPECT_EQ(expected.size(), 12);
    EXPECT_EQ(Captions(root), expected);
    EXPECT_TRUE(window_->Registration().ok());
}

TEST_F(DesktopTest, EveryNodeAndTheRootCarryAnIcon) {
    QTreeWidgetItem* root = Tree().topLevelItem(0);
    EXPECT_FALSE(root->icon(0).isNull());
    for (int i = 0; i < root->childCount(); ++i)
        EXPECT_FALSE(root->child(i)->icon(0).isNull()) << root->child(i)->text(0).toStdString();
}

TEST_F(DesktopTest, RootIconIsKeyedByTheLayoutCodeAndDrawnFromTheLayoutPicture) {
    EXPECT_EQ(Tree().topLevelItem(0)->data(0, HostTree::OidRole).toString(),
              QStringLiteral("L02020011"));
    EXPECT_EQ(Tree().Icons().PictureOf(QStringLiteral("L02020011")), QStringLiteral("LAYOUT"));
}

TEST_F(DesktopTest, JournalsKeyHasNoPictureOfItsOwnAndIsDrawnFromTheJournalPicture) {
    EXPECT_EQ(Tree().Icons().PictureOf(QStringLiteral("C0200500")), QStringLiteral("C0200500J"));
    EXPECT_EQ(Tree().Icons().ForKey(QStringLiteral("C0200500")).cacheKey(),
              Tree().Icons().ForResource(QStringLiteral("C0200500J")).cacheKey());
}

TEST_F(DesktopTest, ForeignClassKeyCarriesTheOperationsPicture) {
    EXPECT_EQ(Tree().Icons().PictureOf(QStringLiteral("C0202000")), QStringLiteral("C0201500"));
    EXPECT_EQ(Tree().Icons().ForKey(QStringLiteral("C0202000")).cacheKey(),
              Tree().Icons().ForResource(QStringLiteral("C0201500")).cacheKey());
}

TEST_F(DesktopTest, WindowIsTitledWithTheSessionTitle) {
    EXPECT_EQ(window_->windowTitle(), session_->Services()->Constants()->Title());
    EXPECT_EQ(window_->windowTitle(), QStringLiteral("Orvo Apskaita"));
}

TEST_F(DesktopTest, NodeChildrenAreReadOnlyWhenTheNodeOpens) {
    QTreeWidgetItem* chart = Node(kChart);
    EXPECT_EQ(chart->childCount(), 0);
    chart->setExpanded(true);
    const QStringList classes = Captions(chart);
    ASSERT_EQ(classes.size(), 6);
    EXPECT_EQ(classes.first(), QStringLiteral("1 Ilgalaikis turtas"));
    EXPECT_EQ(classes.last(), QStringLiteral("6 Sąnaudos"));
}

TEST_F(DesktopTest, OpeningAClassRowListsItsAccountsFromTheChartsNavigator) {
    QTreeWidgetItem* chart = Node(kChart);
    chart->setExpanded(true);
    QTreeWidgetItem* fixedAssets = chart->child(0);
    fixedAssets->setExpanded(true);
    const QList<QTreeWidgetItem*> accounts = Rows(fixedAssets);
    ASSERT_FALSE(accounts.isEmpty());
    for (QTreeWidgetItem* account : accounts) {
        EXPECT_TRUE(account->text(0).startsWith(QLatin1Char('1')))
            << account->text(0).toStdString();
        EXPECT_NE(account->data(0, HostTree::OidRole), fixedAssets->data(0, HostTree::OidRole));
    }
}

TEST_F(DesktopTest, TemplatesNodeListsTheDemoTemplatesThroughTheirNavigator) {
    QTreeWidgetItem* templates = Node(QStringLiteral("Finansinių operacijų šablonai"));
    EXPECT_EQ(templates->childIndicatorPolicy(), QTreeWidgetItem::ShowIndicator);
    templates->setExpanded(true);
    const QList<QTreeWidgetItem*> rows = Rows(templates);
    ASSERT_FALSE(rows.isEmpty());
    for (QTreeWidgetItem* row : rows)
        EXPECT_TRUE(
            row->data(0, HostTree::OidRole).toString().startsWith(QLatin1String("O0201600")));
    EXPECT_FALSE(Tree().MenuFor(templates).isEmpty());
}

TEST_F(DesktopTest, GroupsNodeListsTheGroupsAndAGroupRowItsSubgroupsWithoutAWarning) {
    // The tree asks a list by positions; the groups' list is bounded by dates, so the
    // positions must not be taken for dates.
    QTreeWidgetItem* groups = Node(QStringLiteral("Finansinių operacijų apskaita"));
    groups->setExpanded(true);
    EXPECT_EQ(Captions(groups), QStringList({QStringLiteral("Finansinės operacijos"),
                                             QStringLiteral("Pinigų apskaita")}));
    QTreeWidgetItem* general = groups->child(0);
    general->setExpanded(true);
    const QStringList inside = Captions(general);
    EXPECT_TRUE(inside.contains(QStringLiteral("Bendrosios operacijos")))
        << inside.join(QLatin1Char('|')).toStdString();
    EXPECT_TRUE(inside.contains(QStringLiteral("Metų uždarymas")))
        << inside.join(QLatin1Char('|')).toStdString();
    EXPECT_TRUE(window_->Services().Messages->Take().isEmpty());
}

TEST_F(DesktopTest, RowWhoseListRepeatsItsOwnListIsALeaf) {
    QTreeWidgetItem* firms = Node(kFirms);
    firms->setExpanded(true);
    const QList<QTreeWidgetItem*> rows = Rows(firms);
    ASSERT_GE(rows.size(), 2);
    rows.first()->setExpanded(true);
    EXPECT_EQ(rows.first()->childCount(), 0);
    EXPECT_EQ(rows.first()->childIndicatorPolicy(), QTreeWidgetItem::DontShowIndicator);
}

TEST_F(DesktopTest, LongListLoadsAScreenAtATimeAndTheLastRowLoadsTheNext) {
    const OrvoObjectUIPtr navigator =
        session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0000100"));
    const RecordsetPtr all =
        navigator->GetOrvoObjectList(QStringLiteral("O0000100"), QString(), QString());
    ASSERT_TRUE(all);
    QStringList expected;
    for (all->MoveFirst(); !all->Eof(); all->MoveNext())
        expected.append(all->Field(QStringLiteral("OIDR")).toString());
    ASSERT_GE(expected.size(), 5);

    Tree().SetPageSize(2);
    QTreeWidgetItem* firms = Node(kFirms);
    firms->setExpanded(true);
    ASSERT_EQ(firms->childCount(), 3);
    EXPECT_EQ(Rows(firms).size(), 2);
    QTreeWidgetItem* more = firms->child(2);
    EXPECT_EQ(HostTree::KindOf(more), HostTree::ItemKind::More);
    EXPECT_EQ(more->text(0), QStringLiteral("Daugiau įrašų..."));

    // Every screen follows the last, until the list ends.
    for (int guard = 0; guard < 100; ++guard) {
        QTreeWidgetItem* last = firms->child(firms->childCount() - 1);
        if (HostTree::KindOf(last) != HostTree::ItemKind::More)
            break;
        Tree().Activate(last);
    }
    QStringList shown;
    for (QTreeWidgetItem* row : Rows(firms))
        shown.append(row->data(0, HostTree::OidRole).toString());
    EXPECT_EQ(shown, expected);
}

TEST_F(DesktopTest, EnterOnANodeOpensItAndEnterOnTheLastRowLoadsTheNextScreen) {
    Tree().SetPageSize(2);
    QTreeWidgetItem* firms = Node(kFirms);
    Tree().setCurrentItem(firms);
    pressKey(Tree(), Qt::Key_Return);
    EXPECT_TRUE(firms->isExpanded());
    ASSERT_EQ(Rows(firms).size(), 2);
    Tree().setCurrentItem(firms->child(2));
    pressKey(Tree(), Qt::Key_Return);
    EXPECT_GE(Rows(firms).size(), 3);
    // The first new row is current, for the keyboard to go on from.
    EXPECT_EQ(Tree().currentItem(), firms->child(2));
    pressKey(Tree(), Qt::Key_F5);
    EXPECT_EQ(HostTree::KindOf(Tree().currentItem()), HostTree::ItemKind::Row);
}

TEST_F(DesktopTest, TreeCanBeWorkedWithTheKeyboardAlone) {
    QTreeWidgetItem* root = Tree().topLevelItem(0);
    Tree().setCurrentItem(root);
    // Down to the chart's node, Right opens it, Down into its first class.
    const int chartRow = root->indexOfChild(Node(kChart));
    for (int i = 0; i <= chartRow; ++i)
        pressKey(Tree(), Qt::Key_Down);
    ASSERT_EQ(Tree().currentItem(), Node(kChart));
    pressKey(Tree(), Qt::Key_Right);
    ASSERT_EQ(Rows(Node(kChart)).size(), 6);
    pressKey(Tree(), Qt::Key_Down);
    QTreeWidgetItem* fixedAssets = Node(kChart)->child(0);
    ASSERT_EQ(Tree().currentItem(), fixedAssets);
    // Enter on a row whose click opens nothing opens the row's own list.
    pressKey(Tree(), Qt::Key_Return);
    EXPECT_TRUE(fixedAssets->isExpanded());
    EXPECT_FALSE(Rows(fixedAssets).isEmpty());
    pressKey(Tree(), Qt::Key_Return);
    EXPECT_FALSE(fixedAssets->isExpanded());
}

TEST_F(DesktopTest, ContextMenuEntriesAreTheNavigatorsGetMenuInOrder) {
    QTreeWidgetItem* chart = Node(kChart);
    UI0200400 fresh;
    QStringList expected;
    for (const MenuItem& item : fresh.GetMenu(QStringLiteral("O0200400"), QString(), QString()))
        expected.append(item.Caption);
    ASSERT_FALSE(expected.isEmpty());
    EXPECT_TRUE(expected.contains(UI0200400::kSelect));

    QMenu menu;
    const QHash<QAction*, MenuItem> actions = Tree().FillMenu(chart, menu);
    QStringList shown;
    for (QAction* action : menu.actions())
        shown.append(action->text());
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(actions.size(), expected.size());
}

TEST_F(DesktopTest, MenuKeyOpensTheCurrentNodesMenuAndTheChosenEntryIsClicked) {
    QTreeWidgetItem* chart = Node(kChart);
    chart->setExpanded(true);
    Tree().setCurrentItem(chart);
    answerSelection(QStringLiteral("sąnaud"));
    QStringList offered;
    // Once the popup runs, the entry is chosen as the keyboard would choose it.
    QTimer::singleShot(0, &Tree(), [&offered]() {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions())
            offered.append(action->text());
        for (QAction* action : menu->actions())
            if (action->text() == UI0200400::kSelect)
                menu->setActiveAction(action);
        pressKey(*menu, Qt::Key_Return);
        // Never left waiting for a human.
        if (menu->isVisible())
            menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5));
    QApplication::sendEvent(&Tree(), &event);
    EXPECT_TRUE(offered.contains(UI0200400::kSelect));
    EXPECT_EQ(Captions(chart), QStringList{QStringLiteral("6 Sąnaudos")});
}

TEST_F(DesktopTest, RowMenuIsAskedWithTheRowsReferenceAndType) {
    QTreeWidgetItem* chart = Node(kChart);
    chart->setExpanded(true);
    QTreeWidgetItem* fixedAssets = chart->child(0);
    QStringList shown;
    for (const MenuItem& item : Tree().MenuFor(fixedAssets))
        shown.append(item.Caption);
    // A class row of the chart offers a new account; the chart's own node does not.
    EXPECT_TRUE(shown.contains(UI0200400::kNewAccount));
    EXPECT_TRUE(shown.contains(UI0200400::kDesktop));
}

TEST_F(DesktopTest, ClickMenuWithActionFourNarrowsTheList) {
    QTreeWidgetItem* chart = Node(kChart);
    chart->setExpanded(true);
    ASSERT_EQ(Rows(chart).size(), 6);
    answerSelection(QStringLiteral("pajam"));
    const ClickResult result = Tree().Click(chart, UI0200400::kSelect, QStringLiteral("4"));
    EXPECT_EQ(result.Action, ClickResult::NarrowList);
    EXPECT_EQ(Captions(chart), QStringList{QStringLiteral("5 Pajamos")});
    EXPECT_EQ(chart->data(0, HostTree::CriteriaRole).toString(), QStringLiteral("pajam"));

    // Reading the list again shows it whole.
    Tree().Reload(chart);
    EXPECT_EQ(Rows(chart).size(), 6);
}

TEST_F(DesktopTest, SelectionDialogCancelledLeavesTheListAsItWas) {
    QTreeWidgetItem* chart = Node(kChart);
    chart->setExpanded(true);
    answerSelection(QString());
    const ClickResult result = Tree().Click(chart, UI0200400::kSelect, QStringLiteral("4"));
    EXPECT_EQ(result.Action, ClickResult::Nothing);
    EXPECT_EQ(Rows(chart).size(), 6);
}

TEST_F(DesktopTest, NarrowingThatMatchesNothingLeavesAnEmptyList) {
    QTreeWidgetItem* chart = Node(kChart);
    chart->setExpanded(true);
    answerSelection(QStringLiteral("nėra tokio teksto"));
    EXPECT_EQ(Tree().Click(chart, UI0200400::kSelect, QString()).Action, ClickResult::NarrowList);
    EXPECT_EQ(chart->childCount(), 0);
}

TEST_F(DesktopTest, RowDeletedThroughItsMenuLeavesTheList) {
    QTreeWidgetItem* chart = Node(kChart);
    chart->setExpanded(true);
    QTreeWidgetItem* fixedAssets = chart->child(0);
    fixedAssets->setExpanded(true);
    // The deepest account of the class: one without children of its own.
    QTreeWidgetItem* leaf = Rows(fixedAssets).last();
    for (leaf->setExpanded(true); !Rows(leaf).isEmpty(); leaf->setExpanded(true))
        leaf = Rows(leaf).last();
    QTreeWidgetItem* parent = leaf->parent();
    const int before = Rows(parent).size();
    const QString oidr = leaf->data(0, HostTree::OidRole).toString();
    // Yes to the question, OK to the report that follows.
    DialogDriver::Set([](QDialog& dialog) {
        if (!DialogDriver::Click(dialog, QStringLiteral("cmdYes")))
            DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
    });
    Tree().Click(leaf, UI0200400::kDelete, QStringLiteral("7"));
    EXPECT_FALSE(session_->Services()->ObjectsService()->GetObjectUIO(oidr));
    EXPECT_EQ(Rows(parent).size(), before - 1);
    for (QTreeWidgetItem* row : Rows(parent))
        EXPECT_NE(row->data(0, HostTree::OidRole).toString(), oidr);
}

TEST_F(DesktopTest, RowWhoseDeletionIsDeclinedStays) {
    QTreeWidgetItem* chart = Node(kChart);
    chart->setExpanded(true);
    QTreeWidgetItem* fixedAssets = chart->child(0);
    fixedAssets->setExpanded(true);
    const int before = Rows(fixedAssets).size();
    DialogDriver::Set(
        [](QDialog& dialog) { DialogDriver::Click(dialog, QStringLiteral("cmdNo")); });
    Tree().Click(Rows(fixedAssets).first(), UI0200400::kDelete, QStringLiteral("7"));
    EXPECT_EQ(Rows(fixedAssets).size(), before);
}

TEST_F(DesktopTest, NodeThatNoNavigatorServesHasNothingToOpen) {
    QTreeWidgetItem* multi = Node(QStringLiteral("Spausdintinių dokumentų šablonai ir dokumentai"));
    EXPECT_EQ(multi->childIndicatorPolicy(), QTreeWidgetItem::DontShowIndicator);
    multi->setExpanded(true);
    EXPECT_EQ(multi->childCount(), 0);
    EXPECT_TRUE(Tree().MenuFor(multi).isEmpty());
}

} // namespace orvo::ui::testing
