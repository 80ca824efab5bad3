#include "ui/widgets/qt_check_list.h"

#include "ui/widgets/qt_list_control.h"

namespace orvo::ui {

void QtCheckList::Clear() {
    if (list_)
        list_->clear();
}

int QtCheckList::AddItem(const QString& key, const QString& text) {
    if (!list_)
        return -1;
    auto* item = new QTreeWidgetItem(list_);
    item->setText(0, text);
    item->setData(0, QtListControl::KeyRole, key);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(0, Qt::Unchecked);
    return list_->topLevelItemCount() - 1;
}

int QtCheckList::Count() const {
    return list_ ? list_->topLevelItemCount() : 0;
}

QString QtCheckList::Key(int index) const {
    return list_ ? QtListControl::KeyOf(list_->topLevelItem(index)) : QString();
}

QString QtCheckList::Text(int index) const {
    const QTreeWidgetItem* item = list_ ? list_->topLevelItem(index) : nullptr;
    return item ? item->text(0) : QString();
}

bool QtCheckList::Checked(int index) const {
    const QTreeWidgetItem* item = list_ ? list_->topLevelItem(index) : nullptr;
    return item && item->checkState(0) == Qt::Checked;
}

void QtCheckList::SetChecked(int index, bool checked) {
    if (QTreeWidgetItem* item = list_ ? list_->topLevelItem(index) : nullptr)
        item->setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
}

} // namespace orvo::ui
