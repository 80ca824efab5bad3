#include "frame/messages.h"

#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

namespace orvo {

void Messages::Error(const QString& text) {
    Show(MessageKind::Error, text, MessageTitle());
}

void Messages::Warning(const QString& text) {
    Show(MessageKind::Warning, text, MessageTitle());
}

void Messages::Information(const QString& text) {
    Show(MessageKind::Information, text, MessageTitle());
}

bool Messages::Question(const QString& text) {
    return Ask(text, MessageTitle());
}

namespace {

MessagesPtr moduleMessages() {
    const OrvoServicesPtr s = OrvoS();
    return s ? s->MessagesService() : nullptr;
}

} // namespace

void ShowError(const QString& text) {
    if (const MessagesPtr m = moduleMessages())
        m->Error(text);
}

void ShowWarning(const QString& text) {
    if (const MessagesPtr m = moduleMessages())
        m->Warning(text);
}

void ShowInformation(const QString& text) {
    if (const MessagesPtr m = moduleMessages())
        m->Information(text);
}

bool AskQuestion(const QString& text) {
    const MessagesPtr m = moduleMessages();
    return m ? m->Question(text) : false;
}

} // namespace orvo
