// frmBRCopyByMonthes, "Sumos išdėstymas pagal mėnesius": the small modal window in which
// the operation editor asks how to spread an entry over months (how many, the sum for
// the whole period or for each month, the day of the copies, whether the entry's text
// goes with them). Its window is a WidgetForm held inside, so that it can offer the
// CopyByMonthsForm handle the editor reads.
#pragma once

#include "operations/copy_by_months_form.h"
#include "ui/shell/widget_form.h"

#include <memory>

namespace orvo {

class FrmBRCopyByMonthes : public CopyByMonthsForm {
public:
    void SetEntry(double sum, const QDate& lastDayOfMonth, int dayOfMonth) override;
    bool Cancelled() const override { return cancelled_; }
    CopyByMonthsChoice Choice() const override { return choice_; }

    void Show(bool modal) override;
    void UnloadShowOrvoObject() override {}

private:
    QWidget* build();

    double sum_ = 0;
    QDate lastDay_;
    int day_ = 1;
    bool cancelled_ = true;
    CopyByMonthsChoice choice_;
};

} // namespace orvo
