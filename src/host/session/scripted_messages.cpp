#include "host/session/scripted_messages.h"

namespace orvo::host {

void ScriptedMessages::Show(MessageKind kind, const QString& text, const QString& title) {
    shown_.append({kind, title, text, false});
}

bool ScriptedMessages::Ask(const QString& text, const QString& title) {
    const bool answer = answers_.isEmpty() ? false : answers_.takeFirst();
    shown_.append({MessageKind::Question, title, text, answer});
    return answer;
}

QList<RecordedMessage> ScriptedMessages::Take() {
    QList<RecordedMessage> out;
    out.swap(shown_);
    return out;
}

QString ScriptedMessages::KindName(MessageKind kind) {
    switch (kind) {
    case MessageKind::Error:
        return QStringLiteral("error");
    case MessageKind::Warning:
        return QStringLiteral("warning");
    case MessageKind::Information:
        return QStringLiteral("information");
    case MessageKind::Question:
        return QStringLiteral("question");
    }
    return QString();
}

} // namespace orvo::host
