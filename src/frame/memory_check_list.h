// MemoryCheckList is a list with check boxes held in memory, for the tests and for
// faces without windows.
#pragma once

#include "frame/check_list_control.h"

#include <QList>

namespace orvo {

class MemoryCheckList : public CheckListControl {
public:
    void Clear() override { rows_.clear(); }
    int AddItem(const QString& key, const QString& text) override;
    int Count() const override { return rows_.size(); }
    QString Key(int index) const override;
    QString Text(int index) const override;
    bool Checked(int index) const override;
    void SetChecked(int index, bool checked) override;

private:
    struct Row {
        QString key;
        QString text;
        bool checked = false;
    };
    QList<Row> rows_;
};

} // namespace orvo
