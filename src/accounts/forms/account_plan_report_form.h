// ActRepAccPlan is the printed chart of accounts, "Saskaitų planas": Account, Name and
// Type of every row of the chart, a class in bold and without its type, shown in the
// report window with its exports (files named "Saskaita"). Its clicked parameters are
// the list's filter ("All" from the navigator).
#pragma once

#include "accounts/forms/list_report_form.h"

namespace orvo::accounts_forms {

class ActRepAccPlan : public ListReportForm {
public:
    ActRepAccPlan() : ListReportForm(QStringLiteral("ActRepAccPlan"), &ActRepAccPlan::Build) {}

    // The report of the chart as it stands; false with `error` set when unread.
    static bool Build(const QString& filter, reports::ListReport* report, QString* error);
};

} // namespace orvo::accounts_forms
