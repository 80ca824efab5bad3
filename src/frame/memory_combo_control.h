// MemoryComboControl is a combo box held in memory: a text, a list of items and the
// chosen one, for the tests and for faces without windows.
#pragma once

#include "frame/combo_control.h"

namespace orvo {

class MemoryComboControl : public ComboControl {
public:
    QString Text() const override { return text_; }
    // Typing a text chooses the item that equals it, or none.
    void SetText(const QString& text) override;
    void Clear() override;
    void AddItem(const QString& text) override { items_.append(text); }
    QStringList Items() const override { return items_; }
    int ListIndex() const override { return index_; }
    void SetListIndex(int index) override;

private:
    QString text_;
    QStringList items_;
    int index_ = -1;
};

} // namespace orvo
