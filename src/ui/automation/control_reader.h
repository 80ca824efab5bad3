// ControlReader reads what a control shows (ControlState) from the widget itself: the
// text of an edit, label, button or combo box, a date edit's date, a check mark, and
// every row and cell of a list through its item model, so any item view reads the same
// way (QTreeWidget, QListWidget, QTableWidget and plain views over a model).
#pragma once

#include "ui/automation/control_state.h"

class QObject;

namespace orvo::ui {

class ControlReader {
public:
    static ControlState Read(const QObject& control);
};

} // namespace orvo::ui
