#include "ui/shell/desk_top.h"

#include "ui/shell/widget_form.h"

#include <QMdiSubWindow>
#include <QPointer>

namespace orvo::ui {

namespace {

QPointer<DeskTop>& current() {
    static QPointer<DeskTop> desk;
    return desk;
}

} // namespace

DeskTop::DeskTop(QWidget* parent) : QMdiArea(parent) {
    setObjectName(QStringLiteral("DeskTop"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

DeskTop::~DeskTop() {
    // The windows go with the desktop; their forms must not be held past it.
    for (QMdiSubWindow* window : order_)
        disconnect(window, nullptr, this, nullptr);
    forms_.clear();
    order_.clear();
}

DeskTop* DeskTop::Current() {
    return current().data();
}

void DeskTop::MakeCurrent() {
    current() = this;
}

QMdiSubWindow* DeskTop::WindowOf(const OrvoForm* form) const {
    for (auto it = forms_.constBegin(); it != forms_.constEnd(); ++it)
        if (it.value().get() == form)
            return it.key();
    return nullptr;
}

bool DeskTop::Present(const OrvoFormPtr& form) {
    if (!form)
        return false;
    if (QMdiSubWindow* window = WindowOf(form.get())) {
        setActiveSubWindow(window);
        return true;
    }
    auto* widgetForm = dynamic_cast<WidgetForm*>(form.get());
    if (!widgetForm) {
        form->Show(false);
        return true;
    }
    QWidget* widget = widgetForm->Widget();
    if (!widget)
        return false;
    QMdiSubWindow* window = addSubWindow(widget);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setObjectName(form->FormName() + QStringLiteral("Window"));
    if (window->windowTitle().isEmpty())
        window->setWindowTitle(form->FormName());
    forms_.insert(window, form);
    order_.append(window);
    connect(window, &QObject::destroyed, this, [this, window]() {
        forms_.remove(window);
        order_.removeAll(window);
        Q_EMIT formsChanged();
    });
    window->show();
    setActiveSubWindow(window);
    Q_EMIT formsChanged();
    return true;
}

bool DeskTop::Close(const OrvoForm* form) {
    QMdiSubWindow* window = WindowOf(form);
    if (!window)
        return false;
    // The form is let go at once; the window itself is deleted later by Qt.
    forms_.remove(window);
    order_.removeAll(window);
    window->close();
    Q_EMIT formsChanged();
    return true;
}

QList<OrvoFormPtr> DeskTop::Forms() const {
    QList<OrvoFormPtr> list;
    for (QMdiSubWindow* window : order_)
        list.append(forms_.value(window));
    return list;
}

} // namespace orvo::ui
