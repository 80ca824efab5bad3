// frmCoversInFutureParameters, "Laikotarpis": the small modal window in which the
// deferred-period window edits the period of one row, the first month (dtpDateFrom,
// shown as yyyy.mm) and the number of months (txtMonthCount). The opener sets the row's
// period before showing it and reads back whether it was cancelled and the new period.
#pragma once

#include "ui/shell/widget_form.h"

#include <QDate>
#include <QString>

namespace orvo {

class FrmCoversInFutureParameters : public ui::WidgetForm {
public:
    FrmCoversInFutureParameters();

    // The period shown when the window opens: a month as yyyy.mm (empty: `fallback`'s
    // month) and the count of months.
    void SetPeriod(const QString& monthFrom, const QString& monthCount, const QDate& fallback);

    bool Cancelled() const { return cancelled_; }
    QString MonthFrom() const { return monthFrom_; }
    QString MonthCount() const { return monthCount_; }

protected:
    QWidget* BuildWidget() override;

private:
    QString monthFrom_;
    QString monthCount_;
    QDate fallback_;
    bool cancelled_ = true;
};

} // namespace orvo
