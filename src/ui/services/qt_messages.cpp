#include "ui/services/qt_messages.h"

#include "ui/services/dialog_driver.h"

#include <QMessageBox>
#include <QPushButton>

namespace orvo::ui {

namespace {

QMessageBox::Icon iconOf(MessageKind kind) {
    switch (kind) {
    case MessageKind::Error:
        return QMessageBox::Critical;
    case MessageKind::Warning:
        return QMessageBox::Warning;
    case MessageKind::Question:
        return QMessageBox::Question;
    case MessageKind::Information:
        break;
    }
    return QMessageBox::Information;
}

} // namespace

void QtMessages::Show(MessageKind kind, const QString& text, const QString& title) {
    if (kind == MessageKind::Question) {
        Ask(text, title);
        return;
    }
    QMessageBox box(iconOf(kind), title, text, QMessageBox::NoButton, parent_);
    box.setObjectName(QStringLiteral("MessageBox"));
    QPushButton* ok = box.addButton(QMessageBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOK"));
    box.setDefaultButton(ok);
    box.setEscapeButton(ok);
    shown_.append({kind, title, text, false});
    DialogDriver::Exec(box);
}

bool QtMessages::Ask(const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent_);
    box.setObjectName(QStringLiteral("MessageBox"));
    QPushButton* yes = box.addButton(QMessageBox::Yes);
    yes->setObjectName(QStringLiteral("cmdYes"));
    yes->setText(QStringLiteral("Taip"));
    QPushButton* no = box.addButton(QMessageBox::No);
    no->setObjectName(QStringLiteral("cmdNo"));
    no->setText(QStringLiteral("Ne"));
    // A question closed any other way than by Yes is answered No.
    box.setDefaultButton(yes);
    box.setEscapeButton(no);
    DialogDriver::Exec(box);
    const bool answer = box.clickedButton() == yes;
    shown_.append({MessageKind::Question, title, text, answer});
    return answer;
}

QList<ShownMessage> QtMessages::Take() {
    QList<ShownMessage> taken;
    taken.swap(shown_);
    return taken;
}

} // namespace orvo::ui
