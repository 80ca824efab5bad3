#include "ui/services/dialog_driver.h"

#include <QAbstractButton>
#include <QDialog>
#include <QPointer>
#include <QTimer>

namespace orvo::ui {

namespace {

DialogDriver::Driver& currentDriver() {
    static DialogDriver::Driver driver;
    return driver;
}

} // namespace

void DialogDriver::Set(Driver driver) {
    currentDriver() = std::move(driver);
}

bool DialogDriver::Active() {
    return static_cast<bool>(currentDriver());
}

int DialogDriver::Exec(QDialog& dialog) {
    const Driver driver = currentDriver();
    if (driver) {
        QPointer<QDialog> guard(&dialog);
        // Queued, so that it runs inside the dialog's own event loop, when it is shown.
        QTimer::singleShot(0, &dialog, [guard, driver]() {
            if (!guard)
                return;
            driver(*guard);
            if (guard && guard->isVisible())
                guard->reject();
        });
    }
    return dialog.exec();
}

bool DialogDriver::Click(QWidget& root, const QString& objectName) {
    auto* button = root.findChild<QAbstractButton*>(objectName);
    if (!button || !button->isEnabled())
        return false;
    button->click();
    return true;
}

} // namespace orvo::ui
