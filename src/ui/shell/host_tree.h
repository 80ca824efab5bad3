// HostTree is the left side of the main window: the host's tree. Its top is the branch
// the component registered through DllInicialize ("Buhalterinė apskaita" and the nodes
// under it, with their tree icons); each node is served by the navigator of the object
// code it shows. Child rows come from the navigator's GetOrvoObjectList when a node is
// opened, a screen at a time: positions From and To are asked for, and a last row
// "Daugiau įrašų..." loads the next screen (a navigator that answers with its whole
// list is paged here instead). A row's own children come from the navigator of the
// row's kind; a list that holds the row itself is the row's siblings again, and the
// row is then a leaf.
//
// The context menu of a node or row is the navigator's GetMenu; a chosen entry goes to
// its ClickMenu, and the answer is carried out: Action 1 shows the form on the desktop,
// Action 4 narrows the list to the rows whose text holds the criteria; a row whose record
// a click deleted leaves the list. Enter acts as a double click (the row's own click:
// ClickMenu with no caption; a node opens or closes), the Menu key or Shift+F10 opens
// the context menu, F5 reads a list again.
//
// The lists of the dated kinds (ViewPeriod::DatedKinds: a group's operations) are read
// within the view period set by SetPeriod, still a screen at a time: their navigator gets
// "yyyy.MM.dd;position" in From and To (see ViewPeriod). A node given an action by its
// layout ("SetAction" NodeCode, Caption) lists nothing: Enter and a double click click
// that entry of its navigator's menu, and its menu offers only that entry. Rows can be
// dragged out, carrying their object key as the drag's text, for the windows that take a
// dropped object; the tree itself takes no drop.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "frame/orvo_form.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_objects_service.h"
#include "frame/plain_layout.h"
#include "ui/shell/icon_library.h"
#include "ui/shell/view_period.h"

#include <QHash>
#include <QTreeWidget>
#include <functional>

class QAction;
class QMenu;

namespace orvo::ui {

class HostTree : public QTreeWidget {
    Q_OBJECT
public:
    enum class ItemKind { Root = 1, Node, Row, More };
    enum Role {
        KindRole = Qt::UserRole + 1,
        OidRole,       // the node's object code, or the row's OIDR
        OTypeRole,     // the row's OType
        NavigatorRole, // the code of the navigator that answers for the item
        LoadedRole,    // whether the children were read
        CriteriaRole,  // the text the list was narrowed by
        ActionRole,    // the menu caption a node's activation clicks
    };

    explicit HostTree(OrvoObjectsServicePtr objects, QWidget* parent = nullptr);

    // Builds the top of the tree from the rows of a filled layout.
    void Build(const PlainLayout& layout);
    const IconLibrary& Icons() const { return icons_; }

    // How many rows one screen holds (100 unless set).
    void SetPageSize(int rows) { pageSize_ = qMax(1, rows); }
    int PageSize() const { return pageSize_; }

    // The period the dated lists are read in; the opened ones are read again when it
    // changes.
    void SetPeriod(const ViewPeriod& period);
    const ViewPeriod& Period() const { return period_; }

    // The top node whose caption is `title`, or null.
    QTreeWidgetItem* NodeByTitle(const QString& title) const;
    static ItemKind KindOf(const QTreeWidgetItem* item);

    // Reads the children of the item (once; Reload reads them again).
    void Open(QTreeWidgetItem* item);
    void Reload(QTreeWidgetItem* item);
    // An object was stored: the opened lists that hold its row or belong to `parentOidr`
    // (its group) are read again, so a new object appears and a changed one shows its
    // new text. Lists not yet opened are read when they open anyway.
    void RefreshObject(const QString& oidr, const QString& parentOidr);
    // The next screen of the list that `more` ends.
    void LoadMore(QTreeWidgetItem* more);

    // The navigator that answers for the item; null when its code has none.
    OrvoObjectUIPtr NavigatorFor(const QTreeWidgetItem* item);
    // The item's menu, from its navigator.
    MenuItems MenuFor(QTreeWidgetItem* item);
    // Fills a popup menu with the item's entries ("-" a separator, a checked entry
    // checked) and tells which entry each action stands for.
    QHash<QAction*, MenuItem> FillMenu(QTreeWidgetItem* item, QMenu& menu);
    // Clicks a menu entry of the item and carries out the answer.
    ClickResult Click(QTreeWidgetItem* item, const QString& caption, const QString& key);
    // What Enter and a double click do.
    void Activate(QTreeWidgetItem* item);
    // Narrows the list that holds `rows` (the item's children, or its siblings).
    void Narrow(QTreeWidgetItem* item, const RecordsetPtr& rows, const QString& criteria);

    // What shows a form that a click gave (Action 1).
    std::function<void(const OrvoFormPtr&)> OnShowForm;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override;

private:
    struct RowData {
        QString OIDR;
        QString OType;
        QString Text;
    };

    void showMenu(QTreeWidgetItem* item, const QPoint& globalPos);
    void dropIfGone(QTreeWidgetItem* item);
    void clearChildren(QTreeWidgetItem* item);
    void appendRows(QTreeWidgetItem* parent, const QList<RowData>& rows);
    void addMoreRow(QTreeWidgetItem* parent, int nextPosition);
    void loadPage(QTreeWidgetItem* parent, int from);
    QIcon rowIcon(const OrvoObjectUIPtr& navigator, const QString& oType) const;
    QString listOid(const QTreeWidgetItem* item) const;
    bool isDated(const QTreeWidgetItem* list) const;
    void rereadDated(QTreeWidgetItem* list);
    QString groupIdOf(const QTreeWidgetItem* item) const;
    static QList<RowData> rowsOf(const RecordsetPtr& rs);
    static QString navigatorCodeOfNode(const QString& objectText);

    OrvoObjectsServicePtr objects_;
    IconLibrary icons_;
    QHash<QString, OrvoObjectUIPtr> navigators_;
    // Rows already read but not yet shown, for navigators that answer with a whole list.
    QHash<QTreeWidgetItem*, QList<RowData>> pending_;
    int pageSize_ = 100;
    ViewPeriod period_;
};

} // namespace orvo::ui
