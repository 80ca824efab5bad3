// The behaviour of the editors' number fields: keys are filtered as the users type
// amounts (digits, backspace, one decimal comma, a dot taken as a comma) and the text
// is formatted when the field is left; and the series and number fields arranged
// beside their label ("Serija, Nr." with a series, "Numeris" without).
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <functional>

namespace orvo::ui {

class NumberField : public QObject {
    Q_OBJECT
public:
    // Installs itself on `edit` (and is owned by it): `places` decimals on leaving.
    static NumberField* Attach(QLineEdit* edit, int places = 2);

    // Called after the text was formatted on leaving the field.
    std::function<void()> OnLeft;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    NumberField(QLineEdit* edit, int places);
    QLineEdit* edit_;
    int places_;
};

// With a series the label reads "Serija, Nr." and the series field stands after it,
// the number field to its right; without, the label reads "Numeris" and the number
// field takes the series field's place. Positions follow the label's width plus 50
// units (pixels here).
void ArrangeNumberFields(bool showSeries, QLabel* label, QLineEdit* series, QLineEdit* number);

} // namespace orvo::ui
