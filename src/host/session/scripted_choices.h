// ScriptedChoices answers the host's object picker, group picker and input box from
// queues, for faces without windows: each call takes the next queued answer, and with
// none queued the user is taken to have cancelled (an empty pick, no input).
#pragma once

#include "frame/inputs.h"
#include "frame/pickers.h"

#include <QList>
#include <QString>

namespace orvo::host {

class ScriptedChoices : public Pickers, public Inputs {
public:
    QString PickObject(const QString& kinds, const QString& title, const QString& field,
                       const QString& filter) override;
    QString PickGroup(const QString& code, const QString& title) override;
    std::optional<QString> InputBox(const QString& prompt, const QString& title,
                                    const QString& defaultText = QString()) override;

    // "OIDR_text" for the next pick (objects and groups share the queue).
    void QueuePick(const QString& answer) { picks_.append(answer); }
    // The next input box's text; nullopt stands for Cancel.
    void QueueInput(const std::optional<QString>& answer) { inputs_.append(answer); }

    // What was asked, for a script to read: "pick", "group" or "input" with the title.
    QStringList TakeAsked();

private:
    QList<QString> picks_;
    QList<std::optional<QString>> inputs_;
    QStringList asked_;
};

} // namespace orvo::host
