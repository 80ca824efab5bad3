// frmBROperSelect_ChangeRate, "Valiutos kurso pakeitimas": the small modal window in which
// the selection window takes another rate for the chosen debt's currency. It shows the
// rate of the currency on the date it holds (read again whenever the date changes), and
// gives back the rate the user chose, as base currency per foreign unit.
#pragma once

#include "frame/orvo_object_uio.h"
#include "ui/shell/widget_form.h"

#include <QDate>

class QDateEdit;
class QLineEdit;

namespace orvo {

class FrmBROperSelectChangeRate : public ui::WidgetForm {
public:
    FrmBROperSelectChangeRate();

    void SetCurrency(const QString& code, const QDate& date);

    bool Cancelled() const { return cancelled_; }
    // The chosen rate, base currency per foreign unit.
    double Rate() const { return rate_; }

    // The rate of the code on the date as the list of currencies quotes it: CurrencyRate
    // under a euro base, else Rate; 0 when the currency has none.
    static double QuotedRate(const OrvoObjectUIOPtr& caller, const QString& code,
                             const QDate& date);

protected:
    QWidget* BuildWidget() override;

private:
    void showRate();

    QString code_;
    QDate date_;
    bool cancelled_ = true;
    double rate_ = 0;
    QDateEdit* dtpDate_ = nullptr;
    QLineEdit* txtDayRate_ = nullptr;
};

} // namespace orvo
