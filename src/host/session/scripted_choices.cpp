#include "host/session/scripted_choices.h"

namespace orvo::host {

QString ScriptedChoices::PickObject(const QString& kinds, const QString& title, const QString&,
                                    const QString&) {
    asked_.append(QStringLiteral("pick ") + kinds + QStringLiteral(": ") + title);
    return picks_.isEmpty() ? QString() : picks_.takeFirst();
}

QString ScriptedChoices::PickGroup(const QString& code, const QString& title) {
    asked_.append(QStringLiteral("group ") + code + QStringLiteral(": ") + title);
    return picks_.isEmpty() ? QString() : picks_.takeFirst();
}

std::optional<QString> ScriptedChoices::InputBox(const QString& prompt, const QString& title,
                                                 const QString&) {
    asked_.append(QStringLiteral("input ") + title + QStringLiteral(": ") + prompt);
    return inputs_.isEmpty() ? std::nullopt : inputs_.takeFirst();
}

QStringList ScriptedChoices::TakeAsked() {
    QStringList out;
    out.swap(asked_);
    return out;
}

} // namespace orvo::host
