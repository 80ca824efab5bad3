#include "ui/widgets/number_field.h"

#include "core/number_text.h"

#include <QKeyEvent>

namespace orvo::ui {

NumberField::NumberField(QLineEdit* edit, int places)
    : QObject(edit), edit_(edit), places_(places) {}

NumberField* NumberField::Attach(QLineEdit* edit, int places) {
    if (!edit)
        return nullptr;
    auto* field = new NumberField(edit, places);
    edit->installEventFilter(field);
    return field;
}

bool NumberField::eventFilter(QObject* watched, QEvent* event) {
    if (watched != edit_)
        return false;
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        // Navigation and shortcuts pass; only typed characters are judged.
        if (key->text().isEmpty() ||
            key->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier))
            return false;
        const QChar typed = key->text().at(0);
        if (key->key() == Qt::Key_Backspace || typed.unicode() == 8)
            return false;
        if (typed.unicode() < 32)
            return false;
        const int kept = FilterNumericKey(typed.unicode(), edit_->text());
        if (kept == 0)
            return true;
        if (kept != typed.unicode()) {
            edit_->insert(QString(QChar(kept)));
            return true;
        }
        return false;
    }
    if (event->type() == QEvent::FocusOut) {
        const QString formatted = FormatTypedNumber(edit_->text(), places_, true);
        if (formatted != edit_->text())
            edit_->setText(formatted);
        if (OnLeft)
            OnLeft();
    }
    return false;
}

void ArrangeNumberFields(bool showSeries, QLabel* label, QLineEdit* series, QLineEdit* number) {
    if (!label || !series || !number)
        return;
    label->setText(showSeries ? QStringLiteral("Serija, Nr.") : QStringLiteral("Numeris"));
    label->adjustSize();
    const int left = label->x() + label->width() + 50;
    series->setVisible(showSeries);
    // Inside a layout the layout places the fields; only free-standing ones are moved.
    if (series->parentWidget() && series->parentWidget()->layout())
        return;
    if (showSeries) {
        series->move(left, series->y());
        number->move(left + series->width() + 5, number->y());
    } else {
        number->move(left, number->y());
    }
}

} // namespace orvo::ui
