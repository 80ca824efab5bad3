// frmTransferSum, " Sumos įvedimas": the small modal window in which a settling window
// takes the paid amount of one debt row. A base row is paid by a base sum; a currency
// row by a sum in its currency, whose base sum at the payment rate shows beside it. The
// typed sum is limited to what the row has left plus what was paid on it before.
#pragma once

#include "settlement/selection_list.h"
#include "ui/shell/widget_form.h"

class QLabel;
class QLineEdit;

namespace orvo {

class FrmTransferSum : public ui::WidgetForm {
public:
    FrmTransferSum();

    // The row: its code (three blanks for a base row), the rates, the balances and the
    // old payment.
    void SetInput(const SumEntryInput& input) { input_ = input; }

    bool Cancelled() const { return cancelled_; }
    // The new payment; 0 where the field was left empty.
    double NewBase() const { return newBase_; }
    double NewCurr() const { return newCurr_; }

    // Whether the row is paid in a currency.
    bool CurrencyRow() const;
    // The step of leaving txtSum: formats it, limits it, and for a currency row shows
    // the base sum of what was typed.
    void LeaveSum();

protected:
    QWidget* BuildWidget() override;

private:
    void accept();

    SumEntryInput input_;
    bool cancelled_ = true;
    double newBase_ = 0;
    double newCurr_ = 0;
    QLineEdit* txtSum_ = nullptr;
    QLabel* lblSum_ = nullptr;
    QWidget* root_ = nullptr;
};

} // namespace orvo
