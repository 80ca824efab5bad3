// The host's own branch of the tree, "Nustatymai": it follows the component's branch,
// its nodes list the host's employees, bank accounts and users through the catalogues'
// navigators and open a row's editor on Enter or a double click, and "Mano įmonė" opens
// the firm that keeps the books. Rows of the tree are dragged out as their object key.
#include "desktop_fixture.h"

#include "frame/dll_header.h"
#include "frame/object_registry.h"
#include "frame/orvo_object_ui_base.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"
#include "host/catalogues/catalogue_editor_fields.h"
#include "host/catalogues/catalogue_editor_navigator.h"
#include "ui/catalogues/catalogue_forms.h"
#include "ui/shell/desk_top.h"
#include "ui/shell/host_layout.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>

namespace orvo::ui::testing {

namespace {

class HostLayoutTest : public DesktopTest {
protected:
    void SetUp() override {
        // The catalogues' own navigators, as the desktop program registers them.
        host::RegisterCatalogueNavigators();
        DesktopTest::SetUp();
        if (HasFatalFailure())
            return;
        RegisterCatalogueForms(*session_->Forms());
    }

    void TearDown() override {
        DesktopTest::TearDown();
        // Other tests of the program expect the plain navigators of the catalogues.
        for (const QString& code : host::CatalogueEditorKinds())
            ObjectRegistry::Component().RegisterNavigator(code, [](const QString& c) {
                return std::make_shared<OrvoObjectUIBase>(c.left(8),
                                                          QStringLiteral("UI") + c.mid(1, 7), c);
            });
    }

    QTreeWidgetItem* HostRoot() {
        return Tree().topLevelItemCount() > 1 ? Tree().topLevelItem(1) : nullptr;
    }

    QStringList NavigatorRows(const QString& code) {
        const OrvoObjectUIPtr navigator = session_->Services()->ObjectsService()->GetObjectUI(code);
        QStringList oidrs;
        const RecordsetPtr rs =
            navigator ? navigator->GetOrvoObjectList(code, QString(), QString()) : nullptr;
        if (rs)
            for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
                oidrs << rs->Field(QStringLiteral("OIDR")).toString();
        return oidrs;
    }

    static QStringList Oidrs(const QTreeWidgetItem* list) {
        QStringList oidrs;
        for (const QTreeWidgetItem* row : Rows(list))
            oidrs << row->data(0, HostTree::OidRole).toString();
        return oidrs;
    }

    void PressEnter(QTreeWidgetItem* item) {
        Tree().setCurrentItem(item);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(&Tree(), &press);
    }

    // Presses, releases and presses again with a double click, as a mouse does.
    void DoubleClick(QTreeWidgetItem* item) {
        Tree().scrollToItem(item);
        QWidget* view = Tree().viewport();
        const QPointF at = Tree().visualItemRect(item).center();
        const QPointF global = view->mapToGlobal(at);
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                        QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            const bool down = type != QEvent::MouseButtonRelease;
            QMouseEvent event(type, at, global, Qt::LeftButton,
                              down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(view, &event);
        }
    }

    // The form shown last on the desktop; null when none.
    OrvoFormPtr LastForm() {
        const auto& forms = window_->Desk()->Forms();
        return forms.isEmpty() ? nullptr : forms.last();
    }
};

TEST_F(HostLayoutTest, TheHostsBranchFollowsTheComponentsWithItsFourNodes) {
    ASSERT_EQ(Tree().topLevelItemCount(), 2);
    EXPECT_EQ(Tree().topLevelItem(0)->text(0), QStringLiteral("Buhalterinė apskaita"));
    QTreeWidgetItem* root = HostRoot();
    EXPECT_EQ(root->text(0), QStringLiteral("Nustatymai"));
    EXPECT_EQ(Captions(root),
              QStringList({QStringLiteral("Darbuotojai"), QStringLiteral("Banko sąskaitos"),
                           QStringLiteral("Vartotojai"), QStringLiteral("Mano įmonė")}));
    EXPECT_FALSE(root->icon(0).isNull());
    for (int i = 0; i < root->childCount(); ++i)
        EXPECT_FALSE(root->child(i)->icon(0).isNull());
}

TEST_F(HostLayoutTest, TheHostsNodesAreNotTheComponentsAndComeAfterItsRegistration) {
    QStringList componentTitles;
    for (const DLLHeader::Node& node : DLLHeader::Nodes())
        componentTitles << node.Title;
    for (const DLLHeader::Node& node : HostLayout::Nodes())
        EXPECT_FALSE(componentTitles.contains(node.Title)) << node.Title.toStdString();
    const QList<PlainLayout::Row> roots = window_->Layout().RowsOf(QStringLiteral("AddLayout"));
    ASSERT_EQ(roots.size(), 2);
    EXPECT_EQ(roots.at(0).Arguments.value(1), QStringLiteral("L02020011"));
    EXPECT_EQ(roots.at(1).Arguments.value(1), HostLayout::Code());
}

TEST_F(HostLayoutTest, EmployeesBankAccountsAndUsersListTheirCataloguesRecords) {
    const QList<QPair<QString, QString>> nodes = {
        {QStringLiteral("Darbuotojai"), QStringLiteral("O0001401")},
        {QStringLiteral("Banko sąskaitos"), QStringLiteral("O0000500")},
        {QStringLiteral("Vartotojai"), QStringLiteral("O0000900")}};
    for (const auto& [title, code] : nodes) {
        QTreeWidgetItem* node = Node(title);
        ASSERT_NE(node, nullptr);
        node->setExpanded(true);
        const QStringList expected = NavigatorRows(code);
        EXPECT_FALSE(expected.isEmpty()) << title.toStdString();
        EXPECT_EQ(Oidrs(node), expected) << title.toStdString();
    }
}

TEST_F(HostLayoutTest, EnterOnAnEmployeeOpensItsEditorOnTheRecord) {
    QTreeWidgetItem* node = Node(QStringLiteral("Darbuotojai"));
    node->setExpanded(true);
    const QList<QTreeWidgetItem*> rows = Rows(node);
    ASSERT_FALSE(rows.isEmpty());
    PressEnter(rows.first());
    const OrvoFormPtr form = LastForm();
    ASSERT_TRUE(form);
    EXPECT_EQ(form->FormName(), QStringLiteral("frmEmployee"));
    ASSERT_TRUE(form->GetOrvoObjectUIO());
    EXPECT_EQ(form->GetOrvoObjectUIO()->OIDR(),
              rows.first()->data(0, HostTree::OidRole).toString());
}

TEST_F(HostLayoutTest, DoubleClickOnABankAccountOrAUserOpensItsEditor) {
    const QList<QPair<QString, QString>> nodes = {
        {QStringLiteral("Banko sąskaitos"), QStringLiteral("frmBankAccount")},
        {QStringLiteral("Vartotojai"), QStringLiteral("frmUser")}};
    window_->show();
    QApplication::processEvents();
    for (const auto& [title, formName] : nodes) {
        QTreeWidgetItem* node = Node(title);
        node->setExpanded(true);
        const QList<QTreeWidgetItem*> rows = Rows(node);
        ASSERT_FALSE(rows.isEmpty()) << title.toStdString();
        DoubleClick(rows.first());
        const OrvoFormPtr form = LastForm();
        ASSERT_TRUE(form) << title.toStdString();
        EXPECT_EQ(form->FormName(), formName);
        EXPECT_EQ(form->GetOrvoObjectUIO()->OIDR(),
                  rows.first()->data(0, HostTree::OidRole).toString());
    }
}

TEST_F(HostLayoutTest, OwnFirmListsNothingAndEnterOpensTheFirmThatKeepsTheBooks) {
    QTreeWidgetItem* node = Node(QStringLiteral("Mano įmonė"));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->childIndicatorPolicy(), QTreeWidgetItem::DontShowIndicator);
    node->setExpanded(true);
    EXPECT_EQ(node->childCount(), 0);
    PressEnter(node);
    const OrvoFormPtr form = LastForm();
    ASSERT_TRUE(form);
    EXPECT_EQ(form->FormName(), QStringLiteral("frmMyFirm"));
    ASSERT_TRUE(form->GetOrvoObjectUIO());
    EXPECT_NE(form->GetOrvoObjectUIO()->Field(QStringLiteral("MyFirmFlag")).toInt32(), 0);
}

TEST_F(HostLayoutTest, OwnFirmMenuOffersOnlyItsOwnEntry) {
    const MenuItems menu = Tree().MenuFor(Node(QStringLiteral("Mano įmonė")));
    ASSERT_EQ(menu.size(), 1);
    EXPECT_EQ(menu.first().Caption, QStringLiteral("Mano įmonė"));
    // The employees' node keeps its navigator's whole menu.
    const MenuItems employees = Tree().MenuFor(Node(QStringLiteral("Darbuotojai")));
    ASSERT_FALSE(employees.isEmpty());
    EXPECT_EQ(employees.first().Caption,
              host::CatalogueNavigator::NewCaption(QStringLiteral("O0001401")));
}

TEST_F(HostLayoutTest, RowsAreDraggedAsTheirObjectKeyAndNodesAreNot) {
    QTreeWidgetItem* node = Node(QStringLiteral("Sąskaitų planas"));
    node->setExpanded(true);
    const QList<QTreeWidgetItem*> rows = Rows(node);
    ASSERT_FALSE(rows.isEmpty());
    QTreeWidgetItem* row = rows.first();
    EXPECT_TRUE(row->flags() & Qt::ItemIsDragEnabled);
    EXPECT_FALSE(node->flags() & Qt::ItemIsDragEnabled);
    EXPECT_FALSE(Tree().topLevelItem(0)->flags() & Qt::ItemIsDragEnabled);
    EXPECT_TRUE(Tree().dragEnabled());
    const QModelIndex index = Tree().model()->index(
        0, 0,
        Tree().model()->index(node->parent()->indexOfChild(node), 0, Tree().model()->index(0, 0)));
    std::unique_ptr<QMimeData> data(Tree().model()->mimeData({index}));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->text(), row->data(0, HostTree::OidRole).toString());
}

} // namespace

} // namespace orvo::ui::testing
