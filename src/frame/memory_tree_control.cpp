#include "frame/memory_tree_control.h"

namespace orvo {

int MemoryTreeControl::AddNode(const QString& key, const QString& parentKey, const QString& text) {
    if (key.isEmpty() || IndexOf(key) >= 0)
        return -1;
    if (!parentKey.isEmpty() && IndexOf(parentKey) < 0)
        return -1;
    nodes_.append({key, parentKey, text, false, false});
    return nodes_.size() - 1;
}

int MemoryTreeControl::IndexOf(const QString& key) const {
    for (int i = 0; i < nodes_.size(); ++i)
        if (nodes_.at(i).key == key)
            return i;
    return -1;
}

QString MemoryTreeControl::Key(int index) const {
    return valid(index) ? nodes_.at(index).key : QString();
}

QString MemoryTreeControl::ParentKey(int index) const {
    return valid(index) ? nodes_.at(index).parentKey : QString();
}

QString MemoryTreeControl::Text(int index) const {
    return valid(index) ? nodes_.at(index).text : QString();
}

bool MemoryTreeControl::Bold(int index) const {
    return valid(index) && nodes_.at(index).bold;
}

void MemoryTreeControl::SetBold(int index, bool bold) {
    if (valid(index))
        nodes_[index].bold = bold;
}

bool MemoryTreeControl::Expanded(int index) const {
    return valid(index) && nodes_.at(index).expanded;
}

void MemoryTreeControl::SetExpanded(int index, bool expanded) {
    if (valid(index))
        nodes_[index].expanded = expanded;
}

} // namespace orvo
