#include "ui/services/qt_inputs.h"

#include "ui/services/dialog_driver.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvo::ui {

std::optional<QString> QtInputs::InputBox(const QString& prompt, const QString& title,
                                          const QString& defaultText) {
    QDialog dialog(parent_);
    dialog.setObjectName(QStringLiteral("frmInputBox"));
    dialog.setWindowTitle(title);
    auto* layout = new QVBoxLayout(&dialog);
    auto* label = new QLabel(prompt, &dialog);
    label->setObjectName(QStringLiteral("lblPrompt"));
    label->setWordWrap(true);
    auto* input = new QLineEdit(defaultText, &dialog);
    input->setObjectName(QStringLiteral("txtInput"));
    input->selectAll();
    label->setBuddy(input);
    auto* buttons = new QDialogButtonBox(&dialog);
    QPushButton* ok = buttons->addButton(QStringLiteral("Gerai"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    QPushButton* cancel =
        buttons->addButton(QStringLiteral("Atšaukti"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    layout->addWidget(label);
    layout->addWidget(input);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    input->setFocus();
    if (DialogDriver::Exec(dialog) != QDialog::Accepted)
        return std::nullopt;
    return input->text();
}

} // namespace orvo::ui
