// DeskTop is the right side of the main window: the desktop of open forms, one window
// each. It keeps every form it shows alive while the form's window is open. A form made
// of widgets (WidgetForm) is shown inside the desktop; any other form shows itself.
// The main window's desktop is the current one, where forms opened from anywhere go.
#pragma once

#include "frame/orvo_form.h"

#include <QHash>
#include <QMdiArea>

class QMdiSubWindow;

namespace orvo::ui {

class DeskTop : public QMdiArea {
    Q_OBJECT
public:
    explicit DeskTop(QWidget* parent = nullptr);
    ~DeskTop() override;

    // The desktop forms go to when no other is named; null when there is none.
    static DeskTop* Current();
    void MakeCurrent();

    // Shows the form on the desktop (or brings its window forward); false when the
    // form is null.
    bool Present(const OrvoFormPtr& form);
    // Closes the window of the form; false when the form has none here.
    bool Close(const OrvoForm* form);
    // The forms with a window here, in the order they were opened.
    QList<OrvoFormPtr> Forms() const;
    QMdiSubWindow* WindowOf(const OrvoForm* form) const;

Q_SIGNALS:
    void formsChanged();

private:
    QHash<QMdiSubWindow*, OrvoFormPtr> forms_;
    QList<QMdiSubWindow*> order_;
};

} // namespace orvo::ui
