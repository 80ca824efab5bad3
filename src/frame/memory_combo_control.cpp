#include "frame/memory_combo_control.h"

namespace orvo {

void MemoryComboControl::SetText(const QString& text) {
    text_ = text;
    index_ = items_.indexOf(text);
}

void MemoryComboControl::Clear() {
    items_.clear();
    text_.clear();
    index_ = -1;
}

void MemoryComboControl::SetListIndex(int index) {
    if (index < 0 || index >= items_.size()) {
        index_ = -1;
        return;
    }
    index_ = index;
    text_ = items_.at(index);
}

} // namespace orvo
