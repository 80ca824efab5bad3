#include "frame/memory_check_list.h"

namespace orvo {

int MemoryCheckList::AddItem(const QString& key, const QString& text) {
    rows_.append({key, text, false});
    return rows_.size() - 1;
}

QString MemoryCheckList::Key(int index) const {
    return index >= 0 && index < rows_.size() ? rows_.at(index).key : QString();
}

QString MemoryCheckList::Text(int index) const {
    return index >= 0 && index < rows_.size() ? rows_.at(index).text : QString();
}

bool MemoryCheckList::Checked(int index) const {
    return index >= 0 && index < rows_.size() && rows_.at(index).checked;
}

void MemoryCheckList::SetChecked(int index, bool checked) {
    if (index >= 0 && index < rows_.size())
        rows_[index].checked = checked;
}

} // namespace orvo
