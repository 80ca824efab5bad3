// ActRepAccPlan is the printed chart of accounts, "Saskaitų planas": Account, Name and
// Type of every row of the chart, a class in bold and without its type, shown in the
// report window with its exports (files named "Saskaita"). Its clicked parameters are
// the list's filter ("All" from the navigator).
#pragma once

#include "frame/orvo_form.h"
#include "reports/list_report.h"

#include <QStringList>

namespace orvo::accounts_forms {

class ActRepAccPlan : public OrvoForm {
public:
    QString FormName() const override { return QStringLiteral("ActRepAccPlan"); }

    // The report of the chart as it stands; false with `error` set when unread.
    static bool Build(const QString& filter, reports::ListReport* report, QString* error);

    void Show(bool modal) override;
    void UnloadShowOrvoObject() override {}

    // The files exported while the report was shown last.
    QStringList Exported() const { return exported_; }

private:
    QStringList exported_;
};

} // namespace orvo::accounts_forms
