// MemoryListControl is a plain list held in memory, for the tests and for faces
// without windows.
#pragma once

#include "frame/list_control.h"

#include <QList>
#include <QPair>

namespace orvo {

class MemoryListControl : public ListControl {
public:
    void Clear() override { rows_.clear(); }
    int AddItem(const QString& key, const QString& text) override;
    int Count() const override { return rows_.size(); }
    QString Key(int index) const override;
    QString Text(int index) const override;

private:
    QList<QPair<QString, QString>> rows_;
};

} // namespace orvo
