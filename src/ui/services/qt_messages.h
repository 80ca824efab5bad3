// QtMessages is the desktop's Messages service: real message boxes, each titled with
// the title it is given (the session's, "Orvo Apskaita"), with the icon of its kind.
// The buttons carry the names cmdOK, cmdYes and cmdNo, so that a test driving the box
// (DialogDriver) finds them; the box itself is named MessageBox. Every box shown is
// also remembered with its kind, title and text, for the status line and for tests.
#pragma once

#include "frame/messages.h"

#include <QList>
#include <QPointer>
#include <QWidget>

namespace orvo::ui {

struct ShownMessage {
    MessageKind Kind = MessageKind::Information;
    QString Title;
    QString Text;
    // For a question: true when answered Yes.
    bool Answer = false;
};

class QtMessages : public Messages {
public:
    explicit QtMessages(QWidget* parent = nullptr) : parent_(parent) {}

    void Show(MessageKind kind, const QString& text, const QString& title) override;
    bool Ask(const QString& text, const QString& title) override;

    void SetParent(QWidget* parent) { parent_ = parent; }
    const QList<ShownMessage>& Shown() const { return shown_; }
    // The boxes shown since the last call; the record is then emptied.
    QList<ShownMessage> Take();

private:
    QPointer<QWidget> parent_;
    QList<ShownMessage> shown_;
};

} // namespace orvo::ui
