// What the operation editor needs of frmBRCopyByMonthes, the window that spreads an
// entry over months: it opens on the entry's sum, the last day of its month and the day
// of its date, and after it closes tells whether it was cancelled and the user's
// choices.
#pragma once

#include "frame/orvo_form.h"

#include <QDate>

namespace orvo {

struct CopyByMonthsChoice {
    int Months = 0;
    double Sum = 0;
    // optPeriodSum: the sum is for the whole period; else (optMonthSum) for each month.
    bool PeriodSum = false;
    // optLastDay: each copy on its month's last day; else on `Day`.
    bool LastDay = false;
    int Day = 1;
    // chkWithComment: the entry's Info goes with the copies.
    bool WithComment = false;
};

class CopyByMonthsForm : public OrvoForm {
public:
    QString FormName() const override { return QStringLiteral("frmBRCopyByMonthes"); }

    virtual void SetEntry(double sum, const QDate& lastDayOfMonth, int dayOfMonth) = 0;

    virtual bool Cancelled() const = 0;
    virtual CopyByMonthsChoice Choice() const = 0;
};

} // namespace orvo
