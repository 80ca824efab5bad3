// Messages is the service that shows message boxes: error, warning, information and a
// Yes/No question, each titled with the session's title. The desktop shows real boxes;
// the command line and the tests record or script them. The free functions below are
// what the component's code calls: they go to the Messages of the module-wide services
// with MessageTitle(), and do nothing (a question answers No) when there is none.
#pragma once

#include <QString>
#include <memory>

namespace orvo {

enum class MessageKind { Error, Warning, Information, Question };

class Messages {
public:
    virtual ~Messages() = default;

    // Shows a box of the kind with the text and title; a question is asked by Ask.
    virtual void Show(MessageKind kind, const QString& text, const QString& title) = 0;
    // Asks a Yes/No question; true is Yes.
    virtual bool Ask(const QString& text, const QString& title) = 0;

    // The same titled with MessageTitle().
    void Error(const QString& text);
    void Warning(const QString& text);
    void Information(const QString& text);
    bool Question(const QString& text);
};

using MessagesPtr = std::shared_ptr<Messages>;

void ShowError(const QString& text);
void ShowWarning(const QString& text);
void ShowInformation(const QString& text);
bool AskQuestion(const QString& text);

} // namespace orvo
