#include "ui/widgets/qt_combo_control.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

namespace orvo::ui {

QtComboControl::QtComboControl(QComboBox* combo) : combo_(combo) {
    if (combo_) {
        combo_->setEditable(true);
        // What the user types stays text; it does not become an item of the list.
        combo_->setInsertPolicy(QComboBox::NoInsert);
    }
}

QString QtComboControl::Text() const {
    return combo_ ? combo_->currentText() : QString();
}

void QtComboControl::SetText(const QString& text) {
    if (!combo_)
        return;
    const int index = combo_->findText(text);
    combo_->setCurrentIndex(index);
    combo_->setEditText(text);
}

void QtComboControl::Clear() {
    if (combo_)
        combo_->clear();
}

void QtComboControl::AddItem(const QString& text) {
    if (!combo_)
        return;
    // Adding keeps the text the combo shows, as a list control's AddItem does.
    const QString shown = combo_->currentText();
    const int chosen = combo_->currentIndex();
    combo_->addItem(text);
    combo_->setCurrentIndex(chosen);
    combo_->setEditText(shown);
}

QStringList QtComboControl::Items() const {
    QStringList items;
    if (combo_)
        for (int i = 0; i < combo_->count(); ++i)
            items.append(combo_->itemText(i));
    return items;
}

int QtComboControl::ListIndex() const {
    if (!combo_)
        return -1;
    const int index = combo_->currentIndex();
    // A typed text that is not the chosen item's means no item is chosen.
    if (index >= 0 && combo_->itemText(index) != combo_->currentText())
        return -1;
    return index;
}

void QtComboControl::SetListIndex(int index) {
    if (!combo_)
        return;
    if (index < 0 || index >= combo_->count()) {
        combo_->setCurrentIndex(-1);
        return;
    }
    combo_->setCurrentIndex(index);
    combo_->setEditText(combo_->itemText(index));
}

} // namespace orvo::ui
