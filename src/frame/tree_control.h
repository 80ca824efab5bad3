// TreeControl is what a data object needs of a tree it fills for a window: nodes with a
// key, a parent key (empty at the top), a text, and whether each is shown bold and
// expanded. It travels to the data object inside a Value, so it is an ObjectBase. The
// desktop adapts its tree widget; tests and faces without windows use MemoryTreeControl.
#pragma once

#include "core/object_base.h"

#include <QString>

namespace orvo {

class TreeControl : public ObjectBase {
public:
    virtual void Clear() = 0;
    // Adds a node under `parentKey` (empty: at the top) and returns its position; -1
    // when the key is taken or the parent is unknown.
    virtual int AddNode(const QString& key, const QString& parentKey, const QString& text) = 0;
    virtual int Count() const = 0;
    // The position of a key, -1 when absent.
    virtual int IndexOf(const QString& key) const = 0;
    virtual QString Key(int index) const = 0;
    virtual QString ParentKey(int index) const = 0;
    virtual QString Text(int index) const = 0;
    virtual bool Bold(int index) const = 0;
    virtual void SetBold(int index, bool bold) = 0;
    virtual bool Expanded(int index) const = 0;
    virtual void SetExpanded(int index, bool expanded) = 0;
};

using TreeControlPtr = std::shared_ptr<TreeControl>;

} // namespace orvo
