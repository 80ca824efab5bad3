// BuiltWidgetForm is a WidgetForm whose widget a function of its owner builds. It is the
// window of a form object that offers the caller another handle (the entry card, the
// comment list, the selection window ...) and so cannot be a WidgetForm itself: the
// object keeps its state and builds the widget; this shows it, modally or on the desktop.
#pragma once

#include "ui/shell/widget_form.h"

#include <functional>

namespace orvo::ui {

class BuiltWidgetForm : public WidgetForm {
public:
    BuiltWidgetForm(const QString& name, std::function<QWidget*()> build)
        : WidgetForm(name), build_(std::move(build)) {}

protected:
    QWidget* BuildWidget() override { return build_(); }

private:
    std::function<QWidget*()> build_;
};

} // namespace orvo::ui
