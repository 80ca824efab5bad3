// ListControl is what the Catalogue routines need of a plain list: lines of text, each
// with a key. The desktop adapts its list widget; tests use MemoryListControl.
#pragma once

#include <QString>

namespace orvo {

class ListControl {
public:
    virtual ~ListControl() = default;
    virtual void Clear() = 0;
    // Adds a line and returns its position.
    virtual int AddItem(const QString& key, const QString& text) = 0;
    virtual int Count() const = 0;
    virtual QString Key(int index) const = 0;
    virtual QString Text(int index) const = 0;
};

} // namespace orvo
