// QtCheckList lets the shared Catalogue routines fill a real list with check boxes (a
// QTreeWidget whose rows are checkable in the first column); the key rides in the row's
// data as in QtListControl. The widget is not owned.
#pragma once

#include "frame/check_list_control.h"

#include <QPointer>
#include <QTreeWidget>

namespace orvo::ui {

class QtCheckList : public CheckListControl {
public:
    explicit QtCheckList(QTreeWidget* list) : list_(list) {}

    void Clear() override;
    int AddItem(const QString& key, const QString& text) override;
    int Count() const override;
    QString Key(int index) const override;
    QString Text(int index) const override;
    bool Checked(int index) const override;
    void SetChecked(int index, bool checked) override;

private:
    QPointer<QTreeWidget> list_;
};

} // namespace orvo::ui
