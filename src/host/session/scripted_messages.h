// ScriptedMessages is the Messages service of a face without windows (the command line,
// tests): every box is recorded with its kind, title and text, and a question takes the
// next queued answer (No when none is queued), so a script can both see what the user
// would have been told and answer what the user would have been asked.
#pragma once

#include "frame/messages.h"

#include <QList>
#include <QString>

namespace orvo::host {

struct RecordedMessage {
    MessageKind Kind = MessageKind::Information;
    QString Title;
    QString Text;
    // For a question: the answer it was given.
    bool Answer = false;
};

class ScriptedMessages : public Messages {
public:
    void Show(MessageKind kind, const QString& text, const QString& title) override;
    bool Ask(const QString& text, const QString& title) override;

    void QueueAnswer(bool yes) { answers_.append(yes); }
    // The boxes shown since the last call, oldest first; the record is then emptied.
    QList<RecordedMessage> Take();
    const QList<RecordedMessage>& Shown() const { return shown_; }

    static QString KindName(MessageKind kind);

private:
    QList<RecordedMessage> shown_;
    QList<bool> answers_;
};

} // namespace orvo::host
