#include "ui/automation/modal_watch.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QEventLoop>
#include <QList>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace orvo::ui {

namespace {

// Notes every window that is shown while an action runs; a modal one is served later,
// inside its own event loop. Each showing is noted apart, so a second box made in the
// place of the first is served too.
class ShowNotes : public QObject {
public:
    QList<QPointer<QWidget>> Shown;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->isWidgetType()) {
            auto* widget = static_cast<QWidget*>(watched);
            if (widget->isWindow())
                Shown.append(widget);
        }
        return false;
    }
};

struct ActionState {
    bool Returned = false;
    QEventLoop* Loop = nullptr;
};

} // namespace

bool ModalWatch::IsOpenModal(const QWidget* window) {
    if (!window || !window->isVisible())
        return false;
    if (window->windowType() == Qt::Popup)
        return QApplication::activePopupWidget() == window;
    return window->isModal();
}

void ModalWatch::Dismiss(QWidget& modal) {
    if (auto* dialog = qobject_cast<QDialog*>(&modal)) {
        dialog->reject();
        return;
    }
    modal.close();
}

QStringList ModalWatch::Run(const std::function<void()>& action, const ModalHandler& onModal) {
    QStringList modals;
    auto state = std::make_shared<ActionState>();
    QEventLoop loop;
    state->Loop = &loop;
    ShowNotes notes;
    qApp->installEventFilter(&notes);

    QTimer::singleShot(0, qApp, [state, action]() {
        action();
        state->Returned = true;
        if (state->Loop)
            state->Loop->quit();
    });

    // The check runs inside whatever event loop is innermost, the modal window's own
    // included; while a handler works one window the check waits.
    bool serving = false;
    QTimer poll;
    poll.setInterval(2);
    QObject::connect(&poll, &QTimer::timeout, [&]() {
        if (serving || state->Returned)
            return;
        while (!notes.Shown.isEmpty()) {
            const QPointer<QWidget> window = notes.Shown.takeFirst();
            if (!IsOpenModal(window))
                continue;
            serving = true;
            modals.append(window->objectName());
            if (onModal)
                onModal(*window);
            if (IsOpenModal(window))
                Dismiss(*window);
            serving = false;
            return;
        }
    });
    poll.start();
    if (!state->Returned)
        loop.exec();
    state->Loop = nullptr;
    poll.stop();
    qApp->removeEventFilter(&notes);
    return modals;
}

} // namespace orvo::ui
