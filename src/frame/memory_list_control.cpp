#include "frame/memory_list_control.h"

namespace orvo {

int MemoryListControl::AddItem(const QString& key, const QString& text) {
    rows_.append({key, text});
    return rows_.size() - 1;
}

QString MemoryListControl::Key(int index) const {
    return index >= 0 && index < rows_.size() ? rows_.at(index).first : QString();
}

QString MemoryListControl::Text(int index) const {
    return index >= 0 && index < rows_.size() ? rows_.at(index).second : QString();
}

} // namespace orvo
