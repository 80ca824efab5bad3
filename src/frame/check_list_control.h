// CheckListControl is what the Catalogue routines need of a list with check boxes:
// rows with a key and a text, each ticked or not. The desktop adapts its list widget;
// tests use MemoryCheckList.
#pragma once

#include <QString>

namespace orvo {

class CheckListControl {
public:
    virtual ~CheckListControl() = default;
    virtual void Clear() = 0;
    // Adds an unticked row and returns its position.
    virtual int AddItem(const QString& key, const QString& text) = 0;
    virtual int Count() const = 0;
    virtual QString Key(int index) const = 0;
    virtual QString Text(int index) const = 0;
    virtual bool Checked(int index) const = 0;
    virtual void SetChecked(int index, bool checked) = 0;
};

} // namespace orvo
