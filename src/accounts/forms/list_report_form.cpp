#include "accounts/forms/list_report_form.h"

#include "accounts/forms/list_report_preview.h"
#include "frame/messages.h"

namespace orvo::accounts_forms {

void ListReportForm::Show(bool modal) {
    SetBoolModalForm(modal);
    reports::ListReport report;
    QString error;
    if (!build_(ClickedParameters(), &report, &error)) {
        ShowError(error);
        return;
    }
    exported_ = ShowListReport(report);
}

} // namespace orvo::accounts_forms
