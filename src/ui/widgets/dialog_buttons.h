// DialogButtons is the row every small dialog ends with: "Gerai" (cmdOK) and "Atšaukti"
// (cmdCancel) pushed to the right, so that the names tests and scripts press by are the
// same in every window.
#pragma once

#include <QString>

class QHBoxLayout;
class QPushButton;
class QWidget;

namespace orvo::ui {

struct DialogButtons {
    QHBoxLayout* Row = nullptr;
    QPushButton* Ok = nullptr;
    QPushButton* Cancel = nullptr;

    // The buttons are children of `parent`; the row is for the caller's layout to take.
    static DialogButtons Make(QWidget* parent);
};

} // namespace orvo::ui
