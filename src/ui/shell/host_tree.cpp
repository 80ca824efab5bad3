#include "ui/shell/host_tree.h"

#include "frame/object_registry.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QSet>
#include <QTreeWidgetItemIterator>

namespace orvo::ui {

namespace {

const QString kMoreText = QStringLiteral("Daugiau įrašų...");

// How many first rows are compared to tell a list that repeats its parent's.
constexpr int kCompared = 5;

// Only rows are dragged out; roots, nodes and the "more" row stay where they are.
void keepInPlace(QTreeWidgetItem* item) {
    item->setFlags(item->flags() & ~Qt::ItemIsDragEnabled & ~Qt::ItemIsDropEnabled);
}

} // namespace

HostTree::HostTree(OrvoObjectsServicePtr objects, QWidget* parent)
    : QTreeWidget(parent), objects_(std::move(objects)) {
    setObjectName(QStringLiteral("HostTree"));
    setHeaderHidden(true);
    setColumnCount(1);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setDefaultDropAction(Qt::CopyAction);
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { Open(item); });
    connect(this, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item, int) { Activate(item); });
}

QString HostTree::navigatorCodeOfNode(const QString& objectText) {
    static const QRegularExpression code(QStringLiteral("^[A-Z][0-9]{7}$"));
    const QString first = objectText.section(QStringLiteral("<%>"), 0, 0).left(8);
    return code.match(first).hasMatch() ? first : QString();
}

HostTree::ItemKind HostTree::KindOf(const QTreeWidgetItem* item) {
    return item ? static_cast<ItemKind>(item->data(0, KindRole).toInt()) : ItemKind::Root;
}

void HostTree::Build(const PlainLayout& layout) {
    clear();
    pending_.clear();
    icons_.Load(layout);
    QHash<QString, QTreeWidgetItem*> byCode;
    for (const PlainLayout::Row& row : layout.Rows()) {
        const QStringList& a = row.Arguments;
        if (row.Operation == QLatin1String("AddLayout")) {
            auto* root = new QTreeWidgetItem(this, {a.value(2)});
            root->setData(0, KindRole, int(ItemKind::Root));
            keepInPlace(root);
            root->setData(0, OidRole, a.value(1));
            root->setIcon(0, icons_.ForKey(a.value(1)));
            byCode.insert(a.value(1), root);
        } else if (row.Operation == QLatin1String("AddNode")) {
            QTreeWidgetItem* parent = byCode.value(a.value(0));
            if (!parent)
                continue;
            auto* node = new QTreeWidgetItem(parent, {a.value(2)});
            node->setData(0, KindRole, int(ItemKind::Node));
            node->setData(0, OidRole, a.value(1));
            keepInPlace(node);
            node->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicator);
            byCode.insert(a.value(1), node);
        } else if (row.Operation == QLatin1String("SetObject")) {
            QTreeWidgetItem* node = byCode.value(a.value(0));
            if (!node || KindOf(node) != ItemKind::Node)
                continue;
            const QString code = navigatorCodeOfNode(a.value(1));
            node->setData(0, OidRole, code.isEmpty() ? a.value(1) : code);
            node->setData(0, NavigatorRole, code);
            const OrvoObjectUIPtr navigator = NavigatorFor(node);
            // A node that no navigator serves here has nothing to open.
            node->setChildIndicatorPolicy(navigator ? QTreeWidgetItem::ShowIndicator
                                                    : QTreeWidgetItem::DontShowIndicator);
            const QString iconKey =
                QStringLiteral("C") + (code.isEmpty() ? a.value(0) : code).mid(1);
            QIcon icon;
            if (icons_.PictureOf(iconKey).isEmpty() && navigator)
                icon = rowIcon(navigator, QStringLiteral("C"));
            node->setIcon(0, icon.isNull() ? icons_.ForKey(iconKey) : icon);
        } else if (row.Operation == QLatin1String("SetAction")) {
            QTreeWidgetItem* node = byCode.value(a.value(0));
            if (!node || KindOf(node) != ItemKind::Node)
                continue;
            node->setData(0, ActionRole, a.value(1));
            node->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicator);
        }
    }
    for (int i = 0; i < topLevelItemCount(); ++i)
        topLevelItem(i)->setExpanded(true);
    if (topLevelItemCount() > 0)
        setCurrentItem(topLevelItem(0));
}

QTreeWidgetItem* HostTree::NodeByTitle(const QString& title) const {
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* root = topLevelItem(i);
        for (int j = 0; j < root->childCount(); ++j)
            if (root->child(j)->text(0) == title)
                return root->child(j);
    }
    return nullptr;
}

OrvoObjectUIPtr HostTree::NavigatorFor(const QTreeWidgetItem* item) {
    if (!item)
        return nullptr;
    const QString code = item->data(0, NavigatorRole).toString();
    if (code.isEmpty() || !objects_)
        return nullptr;
    const auto it = navigators_.constFind(code);
    if (it != navigators_.constEnd())
        return *it;
    // One navigator per code for the life of the tree: navigators keep modes of their own.
    const OrvoObjectUIPtr navigator = objects_->GetObjectUI(code);
    navigators_.insert(code, navigator);
    return navigator;
}

QString HostTree::listOid(const QTreeWidgetItem* item) const {
    return item->data(0, OidRole).toString();
}

bool HostTree::isDated(const QTreeWidgetItem* list) const {
    return !period_.IsOpen() &&
           ViewPeriod::DatedKinds().contains(list->data(0, NavigatorRole).toString());
}

void HostTree::SetPeriod(const ViewPeriod& period) {
    if (period == period_)
        return;
    period_ = period;
    const auto datedAndRead = [](const QTreeWidgetItem* item) {
        return item->data(0, LoadedRole).toBool() &&
               ViewPeriod::DatedKinds().contains(item->data(0, NavigatorRole).toString());
    };
    QList<QTreeWidgetItem*> outermost;
    QSet<QString> expanded;
    for (QTreeWidgetItemIterator it(this); *it; ++it) {
        if ((*it)->isExpanded())
            expanded.insert((*it)->data(0, OidRole).toString());
        if (!datedAndRead(*it))
            continue;
        bool inside = false;
        for (const QTreeWidgetItem* up = (*it)->parent(); up && !inside; up = up->parent())
            inside = datedAndRead(up);
        if (!inside)
            outermost.append(*it);
    }
    for (QTreeWidgetItem* list : std::as_const(outermost))
        rereadDated(list);
    // Rows kept through the new reading open as they were.
    for (QTreeWidgetItemIterator it(this); *it; ++it)
        if ((*it)->data(0, LoadedRole).toBool() &&
            expanded.contains((*it)->data(0, OidRole).toString()))
            (*it)->setExpanded(true);
}

void HostTree::rereadDated(QTreeWidgetItem* list) {
    // The rows opened inside the list are kept with what they show, so that a new period
    // does not fold the tree up; the other rows are read afresh.
    const QList<QTreeWidgetItem*> old = list->takeChildren();
    QHash<QString, QTreeWidgetItem*> opened;
    for (QTreeWidgetItem* child : old)
        if (KindOf(child) == ItemKind::Row && child->data(0, LoadedRole).toBool())
            opened.insert(listOid(child), child);
    pending_.remove(list);
    list->setData(0, LoadedRole, false);
    list->setData(0, CriteriaRole, QVariant());
    Open(list);
    QSet<QTreeWidgetItem*> kept;
    for (int i = 0; i < list->childCount(); ++i) {
        QTreeWidgetItem* fresh = list->child(i);
        QTreeWidgetItem* same =
            KindOf(fresh) == ItemKind::Row ? opened.value(listOid(fresh)) : nullptr;
        if (!same || kept.contains(same))
            continue;
        delete list->takeChild(i);
        list->insertChild(i, same);
        kept.insert(same);
        if (ViewPeriod::DatedKinds().contains(same->data(0, NavigatorRole).toString()))
            rereadDated(same);
    }
    for (QTreeWidgetItem* child : old)
        if (!kept.contains(child)) {
            clearChildren(child);
            delete child;
        }
}

QString HostTree::groupIdOf(const QTreeWidgetItem* item) const {
    const QTreeWidgetItem* parent = item->parent();
    if (KindOf(parent) != ItemKind::Row)
        return QString();
    return parent->data(0, OidRole).toString().mid(8);
}

QList<HostTree::RowData> HostTree::rowsOf(const RecordsetPtr& rs) {
    QList<RowData> rows;
    if (!rs)
        return rows;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        RowData row;
        row.OIDR = rs->Field(QStringLiteral("OIDR")).toString();
        row.OType = rs->Field(QStringLiteral("OType")).toString();
        const Value preview = rs->Field(QStringLiteral("Preview"));
        row.Text = preview.isNull() || preview.toString().isEmpty() ? row.OIDR : preview.toString();
        rows.append(row);
    }
    return rows;
}

QIcon HostTree::rowIcon(const OrvoObjectUIPtr& navigator, const QString& oType) const {
    if (!navigator)
        return QIcon();
    const IconMappings table = navigator->GetIconsTable();
    for (const IconMapping& m : table)
        if (m.OType == oType)
            return icons_.ForKey(m.Icon);
    return QIcon();
}

void HostTree::clearChildren(QTreeWidgetItem* item) {
    const QList<QTreeWidgetItem*> children = item->takeChildren();
    QList<QTreeWidgetItem*> walk = children;
    while (!walk.isEmpty()) {
        QTreeWidgetItem* child = walk.takeLast();
        pending_.remove(child);
        for (int i = 0; i < child->childCount(); ++i)
            walk.append(child->child(i));
    }
    pending_.remove(item);
    qDeleteAll(children);
}

void HostTree::appendRows(QTreeWidgetItem* parent, const QList<RowData>& rows) {
    const OrvoObjectUIPtr lister = NavigatorFor(parent);
    const QString listerCode = parent->data(0, NavigatorRole).toString();
    for (const RowData& row : rows) {
        auto* item = new QTreeWidgetItem(parent, {row.Text});
        item->setData(0, KindRole, int(ItemKind::Row));
        item->setData(0, OidRole, row.OIDR);
        item->setData(0, OTypeRole, row.OType);
        item->setToolTip(0, row.OIDR);
        // The row answers through the navigator of its own kind when there is one.
        const QString kind = row.OIDR.left(8);
        item->setData(0, NavigatorRole, kind);
        OrvoObjectUIPtr own = NavigatorFor(item);
        if (!own) {
            item->setData(0, NavigatorRole, listerCode);
            own = lister;
        }
        QIcon icon = rowIcon(lister, row.OType);
        if (icon.isNull() && own != lister)
            icon = rowIcon(own, row.OType);
        item->setIcon(0, icon);
        item->setChildIndicatorPolicy(own ? QTreeWidgetItem::ShowIndicator
                                          : QTreeWidgetItem::DontShowIndicator);
    }
}

void HostTree::addMoreRow(QTreeWidgetItem* parent, int nextPosition) {
    auto* more = new QTreeWidgetItem(parent, {kMoreText});
    more->setData(0, KindRole, int(ItemKind::More));
    keepInPlace(more);
    more->setData(0, OidRole, nextPosition);
    QFont font = more->font(0);
    font.setItalic(true);
    more->setFont(0, font);
}

void HostTree::loadPage(QTreeWidgetItem* parent, int from) {
    // A list already read whole is shown from what is kept.
    if (pending_.contains(parent)) {
        QList<RowData> rest = pending_.take(parent);
        const QList<RowData> page = rest.mid(0, pageSize_);
        rest = rest.mid(page.size());
        appendRows(parent, page);
        if (!rest.isEmpty()) {
            pending_.insert(parent, rest);
            addMoreRow(parent, 0);
        }
        return;
    }
    const OrvoObjectUIPtr navigator = NavigatorFor(parent);
    if (!navigator)
        return;
    const int to = from + pageSize_ - 1;
    const bool dated = isDated(parent);
    const RecordsetPtr rs = navigator->GetOrvoObjectList(
        listOid(parent), dated ? period_.ListFrom(from) : QString::number(from),
        dated ? period_.ListTo(to) : QString::number(to));
    QList<RowData> rows = rowsOf(rs);
    if (rows.isEmpty())
        return;
    if (KindOf(parent) == ItemKind::Row && from == 1) {
        // A list that holds the row itself, or starts as the list the row stands in, is
        // the row's own list again: the row has no children of its own.
        const QString self = listOid(parent);
        bool repeats = false;
        for (const RowData& r : rows)
            repeats = repeats || r.OIDR == self;
        if (!repeats && parent->parent()) {
            const QTreeWidgetItem* up = parent->parent();
            const int n = qMin(qMin(kCompared, int(rows.size())), up->childCount());
            repeats = n > 0;
            for (int i = 0; i < n && repeats; ++i)
                repeats = up->child(i)->data(0, OidRole).toString() == rows.at(i).OIDR;
        }
        if (repeats)
            return;
    }
    const bool firstAgain = from > 1 && parent->childCount() > 0 &&
                            parent->child(0)->data(0, OidRole).toString() == rows.first().OIDR;
    if (rows.size() > pageSize_ || firstAgain) {
        // The navigator gave its whole list, whatever the positions: page it here.
        pending_.insert(parent, rows.mid(from - 1));
        loadPage(parent, from);
        return;
    }
    appendRows(parent, rows);
    if (rows.size() == pageSize_)
        addMoreRow(parent, from + pageSize_);
}

void HostTree::RefreshObject(const QString& oidr, const QString& parentOidr) {
    QList<QTreeWidgetItem*> lists;
    for (QTreeWidgetItemIterator it(this); *it; ++it) {
        QTreeWidgetItem* item = *it;
        const QString oid = item->data(0, OidRole).toString();
        QTreeWidgetItem* list = nullptr;
        if (!parentOidr.isEmpty() && oid == parentOidr)
            list = item;
        else if (!oidr.isEmpty() && oid == oidr && KindOf(item) == ItemKind::Row)
            list = item->parent();
        if (list && list->data(0, LoadedRole).toBool() && !lists.contains(list))
            lists.append(list);
    }
    // Reading a list again replaces its rows, so the lists are collected first.
    for (QTreeWidgetItem* list : std::as_const(lists))
        Reload(list);
}

void HostTree::Open(QTreeWidgetItem* item) {
    const ItemKind kind = KindOf(item);
    if (!item || (kind != ItemKind::Node && kind != ItemKind::Row))
        return;
    if (item->data(0, LoadedRole).toBool() || !item->data(0, ActionRole).toString().isEmpty())
        return;
    item->setData(0, LoadedRole, true);
    loadPage(item, 1);
    if (item->childCount() == 0)
        item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicator);
}

void HostTree::Reload(QTreeWidgetItem* item) {
    if (!item)
        return;
    const bool wasCurrentInside =
        currentItem() && currentItem() != item && currentItem()->parent() != nullptr;
    clearChildren(item);
    item->setData(0, LoadedRole, false);
    item->setData(0, CriteriaRole, QVariant());
    item->setToolTip(0, KindOf(item) == ItemKind::Row ? listOid(item) : QString());
    if (NavigatorFor(item) && item->data(0, ActionRole).toString().isEmpty())
        item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    Open(item);
    if (wasCurrentInside && !currentItem())
        setCurrentItem(item);
}

void HostTree::LoadMore(QTreeWidgetItem* more) {
    if (KindOf(more) != ItemKind::More)
        return;
    QTreeWidgetItem* parent = more->parent();
    const int next = more->data(0, OidRole).toInt();
    const int index = parent->indexOfChild(more);
    delete more;
    loadPage(parent, next > 0 ? next : 1);
    // The first new row becomes current, so the keyboard goes on where the list grew.
    if (QTreeWidgetItem* first = parent->child(index))
        setCurrentItem(first);
}

MenuItems HostTree::MenuFor(QTreeWidgetItem* item) {
    const ItemKind kind = KindOf(item);
    if (!item || (kind != ItemKind::Node && kind != ItemKind::Row))
        return {};
    const OrvoObjectUIPtr navigator = NavigatorFor(item);
    if (!navigator)
        return {};
    if (kind == ItemKind::Node) {
        const MenuItems menu = navigator->GetMenu(listOid(item), QString(), QString());
        const QString action = item->data(0, ActionRole).toString();
        if (action.isEmpty())
            return menu;
        MenuItems own;
        for (const MenuItem& entry : menu)
            if (entry.Caption == action)
                own.append(entry);
        return own;
    }
    return navigator->GetMenu(listOid(item), item->data(0, OTypeRole).toString(), groupIdOf(item));
}

ClickResult HostTree::Click(QTreeWidgetItem* item, const QString& caption, const QString& key) {
    const OrvoObjectUIPtr navigator = NavigatorFor(item);
    if (!navigator)
        return {};
    const ClickResult result = navigator->ClickMenu(listOid(item), QString(), caption, key);
    if (result.Action == ClickResult::ShowForm) {
        const auto form = std::dynamic_pointer_cast<OrvoForm>(result.Payload.toObject());
        if (form && OnShowForm)
            OnShowForm(form);
    } else if (result.Action == ClickResult::NarrowList) {
        const ValueArray& payload = result.Payload.toArray();
        Narrow(item, payload.value(0).toRecordset(), payload.value(1).toString());
    } else if (!caption.isEmpty() && KindOf(item) == ItemKind::Row) {
        dropIfGone(item);
    }
    return result;
}

void HostTree::dropIfGone(QTreeWidgetItem* item) {
    // A click may have deleted the row's record (the navigators answer a deletion with
    // no action): a row whose record can no longer be read leaves the list.
    const QString oidr = listOid(item);
    if (!objects_ || oidr.size() < 9 || !ObjectRegistry::Component().HasDataObject(oidr))
        return;
    if (objects_->GetObjectUIO(oidr))
        return;
    if (currentItem() == item)
        setCurrentItem(item->parent());
    clearChildren(item);
    delete item;
}

void HostTree::Narrow(QTreeWidgetItem* item, const RecordsetPtr& rows, const QString& criteria) {
    if (!item)
        return;
    // The criteria are quoted values joined by commas; the last one is the text sought.
    QString text = criteria;
    static const QRegularExpression quoted(QStringLiteral("'([^']*)'"));
    for (auto it = quoted.globalMatch(criteria); it.hasNext();)
        text = it.next().captured(1);
    text = text.trimmed();

    QList<RowData> all = rowsOf(rows);
    QTreeWidgetItem* target = item;
    if (KindOf(item) == ItemKind::Row) {
        for (const RowData& r : all)
            if (r.OIDR == listOid(item) && item->parent())
                target = item->parent();
    }
    if (!rows) {
        // Without a list of its own the click narrows what the tree shows.
        Open(target);
        for (int i = 0; i < target->childCount(); ++i)
            if (KindOf(target->child(i)) == ItemKind::Row)
                all.append({listOid(target->child(i)),
                            target->child(i)->data(0, OTypeRole).toString(),
                            target->child(i)->text(0)});
        all.append(pending_.value(target));
    }
    QList<RowData> kept;
    for (const RowData& r : all)
        if (text.isEmpty() || r.Text.contains(text, Qt::CaseInsensitive) ||
            r.OIDR.contains(text, Qt::CaseInsensitive))
            kept.append(r);
    clearChildren(target);
    target->setData(0, LoadedRole, true);
    target->setData(0, CriteriaRole, text);
    target->setToolTip(0, QStringLiteral("Atrinkta: %1").arg(text));
    if (!kept.isEmpty()) {
        pending_.insert(target, kept);
        loadPage(target, 1);
    }
    target->setChildIndicatorPolicy(kept.isEmpty() ? QTreeWidgetItem::DontShowIndicator
                                                   : QTreeWidgetItem::ShowIndicator);
    target->setExpanded(true);
}

void HostTree::Activate(QTreeWidgetItem* item) {
    switch (KindOf(item)) {
    case ItemKind::More:
        LoadMore(item);
        return;
    case ItemKind::Node:
        if (const QString action = item->data(0, ActionRole).toString(); !action.isEmpty()) {
            // Only when the navigator offers the entry to this user.
            for (const MenuItem& entry : MenuFor(item))
                if (entry.Caption == action) {
                    Click(item, entry.Caption, entry.Key);
                    return;
                }
            return;
        }
        [[fallthrough]];
    case ItemKind::Root:
        if (item)
            item->setExpanded(!item->isExpanded());
        return;
    case ItemKind::Row:
        break;
    }
    const ClickResult result = Click(item, QString(), QString());
    if (result.Action == ClickResult::Nothing &&
        item->childIndicatorPolicy() != QTreeWidgetItem::DontShowIndicator)
        item->setExpanded(!item->isExpanded());
}

QHash<QAction*, MenuItem> HostTree::FillMenu(QTreeWidgetItem* item, QMenu& menu) {
    QHash<QAction*, MenuItem> actions;
    for (const MenuItem& entry : MenuFor(item)) {
        if (entry.Caption == QLatin1String("-")) {
            menu.addSeparator();
            continue;
        }
        QAction* action = menu.addAction(entry.Caption);
        if (entry.Checked) {
            action->setCheckable(true);
            action->setChecked(true);
        }
        actions.insert(action, entry);
    }
    return actions;
}

void HostTree::showMenu(QTreeWidgetItem* item, const QPoint& globalPos) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("mnuNode"));
    const QHash<QAction*, MenuItem> actions = FillMenu(item, menu);
    if (actions.isEmpty())
        return;
    QAction* picked = menu.exec(globalPos);
    if (picked && actions.contains(picked)) {
        const MenuItem entry = actions.value(picked);
        Click(item, entry.Caption, entry.Key);
    }
}

void HostTree::contextMenuEvent(QContextMenuEvent* event) {
    QTreeWidgetItem* item = event->reason() == QContextMenuEvent::Keyboard
                                ? currentItem()
                                : itemAt(event->pos()); // the viewport's own coordinates
    if (!item)
        return;
    setCurrentItem(item);
    const QPoint at = event->reason() == QContextMenuEvent::Keyboard
                          ? viewport()->mapToGlobal(visualItemRect(item).bottomLeft())
                          : event->globalPos();
    showMenu(item, at);
}

QStringList HostTree::mimeTypes() const {
    return {QStringLiteral("text/plain")};
}

QMimeData* HostTree::mimeData(const QList<QTreeWidgetItem*>& items) const {
    for (const QTreeWidgetItem* item : items) {
        if (KindOf(item) != ItemKind::Row)
            continue;
        auto* data = new QMimeData;
        data->setText(item->data(0, OidRole).toString());
        return data;
    }
    return nullptr;
}

void HostTree::keyPressEvent(QKeyEvent* event) {
    QTreeWidgetItem* item = currentItem();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (item)
            Activate(item);
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_F5 && item) {
        Reload(KindOf(item) == ItemKind::More ? item->parent() : item);
        event->accept();
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

} // namespace orvo::ui
