#include "ui/shell/widget_form.h"

#include "ui/services/dialog_driver.h"
#include "ui/shell/desk_top.h"

#include <QDialog>
#include <QVBoxLayout>

namespace orvo::ui {

WidgetForm::~WidgetForm() {
    // A widget still without a window belongs to nobody else.
    if (widget_ && !widget_->parent())
        delete widget_.data();
}

QWidget* WidgetForm::Widget() {
    if (!widget_) {
        widget_ = BuildWidget();
        if (widget_) {
            widget_->setObjectName(name_);
            widget_->setAttribute(Qt::WA_DeleteOnClose, false);
        }
    }
    return widget_;
}

void WidgetForm::Show(bool modal) {
    SetBoolModalForm(modal);
    QWidget* widget = Widget();
    if (!widget)
        return;
    if (modal) {
        // The form keeps itself alive while its dialog runs.
        const WidgetFormPtr self = shared_from_this();
        QDialog dialog(DeskTop::Current());
        dialog.setObjectName(FormName() + QStringLiteral("Dialog"));
        dialog.setWindowTitle(widget->windowTitle());
        auto* layout = new QVBoxLayout(&dialog);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(widget);
        DialogDriver::Exec(dialog);
        // The widget goes with the dialog; a later Show builds it anew.
        return;
    }
    if (DeskTop* desk = DeskTop::Current()) {
        desk->Present(shared_from_this());
        return;
    }
    widget->show();
}

void WidgetForm::UnloadShowOrvoObject() {
    if (DeskTop* desk = DeskTop::Current())
        if (desk->Close(this))
            return;
    if (widget_)
        widget_->close();
}

} // namespace orvo::ui
