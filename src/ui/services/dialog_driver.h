// DialogDriver runs the desktop's modal dialogs, and lets a test answer them without a
// human: a driver set by the test is called with each dialog once the dialog is shown
// and its event loop is running; it finds controls by objectName, fills them and clicks.
// A dialog that the driver leaves open is cancelled, so a test never hangs on a box it
// did not expect. Without a driver the dialog simply runs for the user.
#pragma once

#include <QString>
#include <functional>

class QDialog;
class QWidget;

namespace orvo::ui {

class DialogDriver {
public:
    using Driver = std::function<void(QDialog& dialog)>;

    // Sets (or, with an empty function, removes) the driver of every dialog to come.
    static void Set(Driver driver);
    static void Clear() { Set(nullptr); }
    static bool Active();

    // Runs the dialog modally and returns its result code (QDialog::Accepted ...).
    static int Exec(QDialog& dialog);

    // Clicks the button of that objectName inside `root`; false when there is none or
    // it is disabled.
    static bool Click(QWidget& root, const QString& objectName);
};

} // namespace orvo::ui
