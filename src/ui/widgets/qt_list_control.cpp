#include "ui/widgets/qt_list_control.h"

namespace orvo::ui {

QString QtListControl::KeyOf(const QTreeWidgetItem* item) {
    return item ? item->data(0, KeyRole).toString() : QString();
}

void QtListControl::Clear() {
    if (list_)
        list_->clear();
}

int QtListControl::AddItem(const QString& key, const QString& text) {
    if (!list_)
        return -1;
    auto* item = new QTreeWidgetItem(list_);
    item->setText(0, text);
    item->setData(0, KeyRole, key);
    return list_->topLevelItemCount() - 1;
}

int QtListControl::Count() const {
    return list_ ? list_->topLevelItemCount() : 0;
}

QString QtListControl::Key(int index) const {
    return list_ ? KeyOf(list_->topLevelItem(index)) : QString();
}

QString QtListControl::Text(int index) const {
    const QTreeWidgetItem* item = list_ ? list_->topLevelItem(index) : nullptr;
    return item ? item->text(0) : QString();
}

} // namespace orvo::ui
