// ComboControl is what the Catalogue routines need of a combo box: its text, its list
// of items, and the choice of one. The desktop adapts its combo widget to it; tests and
// the command line use MemoryComboControl.
#pragma once

#include <QString>
#include <QStringList>

namespace orvo {

class ComboControl {
public:
    virtual ~ComboControl() = default;
    virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0;
    // Removes every item (the text goes with them).
    virtual void Clear() = 0;
    virtual void AddItem(const QString& text) = 0;
    virtual QStringList Items() const = 0;
    // The chosen item's position, -1 for none; choosing an item makes it the text.
    virtual int ListIndex() const = 0;
    virtual void SetListIndex(int index) = 0;
};

} // namespace orvo
