// ModalWatch carries out one user action (a click, a double click, a key typed, a menu
// command) as the event loop would, and keeps the one who drives it from being stuck
// behind a modal window. The action runs queued while the caller spins the event loop;
// the spin ends when the action returns. When the action opens a modal window (a dialog,
// a message box, a popup menu), its own event loop is running, and the watch hands that
// window to the caller's ModalHandler, which works it (finds its controls by objectName,
// fills them, clicks) until it closes. A window the handler leaves open is cancelled, so
// nothing waits for a human who is not there. Nested modal windows are served the same
// way by the watch of the action that opened them.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QWidget;

namespace orvo::ui {

class ModalWatch {
public:
    using ModalHandler = std::function<void(QWidget& modal)>;

    // Runs `action` queued and returns when it has returned; the objectNames of the
    // modal windows that opened meanwhile, in order.
    static QStringList Run(const std::function<void()>& action, const ModalHandler& onModal);

    // Whether the window is a modal one (or a popup) that is open now.
    static bool IsOpenModal(const QWidget* window);
    // Cancels a modal window: a dialog is rejected, a popup or any other window closed.
    static void Dismiss(QWidget& modal);
};

} // namespace orvo::ui
