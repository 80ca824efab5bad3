// WidgetForm is the base of the component's windows made of Qt widgets: an OrvoForm
// that builds its widget when first shown. Shown modally it runs in a dialog and returns
// when closed; shown otherwise it goes to the desktop of the main window, and lives as
// long as its window there (or the desktop service) keeps it. The widget's objectName is
// the form's name, so that tests and scripts find it.
#pragma once

#include "frame/orvo_form.h"

#include <QPointer>
#include <QWidget>
#include <memory>

namespace orvo::ui {

class WidgetForm : public OrvoForm, public std::enable_shared_from_this<WidgetForm> {
public:
    explicit WidgetForm(const QString& name) : name_(name) {}
    ~WidgetForm() override;

    QString FormName() const override { return name_; }

    // The form's widget, built on first use.
    QWidget* Widget();
    // Whether the widget exists now (it goes with the window that showed it).
    bool HasWidget() const { return !widget_.isNull(); }

    void Show(bool modal) override;
    void UnloadShowOrvoObject() override;

protected:
    // Builds the widget of the form, without a parent.
    virtual QWidget* BuildWidget() = 0;

private:
    QString name_;
    QPointer<QWidget> widget_;
};

using WidgetFormPtr = std::shared_ptr<WidgetForm>;

} // namespace orvo::ui
