// QtComboControl adapts a QComboBox to the ComboControl the Catalogue routines fill
// (account and currency combos): its text, its items, and the choice of one. The combo
// is editable, as the editors' combos are: the user may type an account and its name.
#pragma once

#include "frame/combo_control.h"

#include <QPointer>

class QComboBox;

namespace orvo::ui {

class QtComboControl : public ComboControl {
public:
    explicit QtComboControl(QComboBox* combo);

    QString Text() const override;
    void SetText(const QString& text) override;
    void Clear() override;
    void AddItem(const QString& text) override;
    QStringList Items() const override;
    int ListIndex() const override;
    void SetListIndex(int index) override;

private:
    QPointer<QComboBox> combo_;
};

} // namespace orvo::ui
