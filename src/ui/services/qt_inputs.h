// QtInputs is the desktop's input box: a dialog (frmInputBox) with the prompt
// (lblPrompt), a text field holding the default text (txtInput) and the buttons cmdOK
// and cmdCancel. OK gives the typed text back; Cancel gives nothing.
#pragma once

#include "frame/inputs.h"

#include <QPointer>
#include <QWidget>

namespace orvo::ui {

class QtInputs : public Inputs {
public:
    explicit QtInputs(QWidget* parent = nullptr) : parent_(parent) {}

    std::optional<QString> InputBox(const QString& prompt, const QString& title,
                                    const QString& defaultText = QString()) override;

    void SetParent(QWidget* parent) { parent_ = parent; }

private:
    QPointer<QWidget> parent_;
};

} // namespace orvo::ui
