// QtListControl lets the shared Catalogue routines fill a real list (a QTreeWidget, the
// editors' lvw... lists): each line is a row whose first column holds the text and whose
// key rides in the row's data under KeyRole. The widget is not owned.
#pragma once

#include "frame/list_control.h"

#include <QPointer>
#include <QTreeWidget>

namespace orvo::ui {

class QtListControl : public ListControl {
public:
    // The data role of a row's key, shared by every list of the desktop.
    static constexpr int KeyRole = Qt::UserRole;
    // The key of a row; empty for none.
    static QString KeyOf(const QTreeWidgetItem* item);

    explicit QtListControl(QTreeWidget* list) : list_(list) {}

    void Clear() override;
    int AddItem(const QString& key, const QString& text) override;
    int Count() const override;
    QString Key(int index) const override;
    QString Text(int index) const override;

private:
    QPointer<QTreeWidget> list_;
};

} // namespace orvo::ui
