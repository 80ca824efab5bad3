#include "accounts/forms/account_plan_report_form.h"

#include "accounts/account_plan_print.h"
#include "accounts/forms/form_support.h"
#include "accounts/forms/list_report_preview.h"
#include "frame/messages.h"

namespace orvo::accounts_forms {

bool ActRepAccPlan::Build(const QString& filter, reports::ListReport* report, QString* error) {
    const RecordsetPtr rows = AccountPlanPrintRows(ReportBusinessObject(), filter, error);
    if (!rows)
        return false;
    report->Title = QStringLiteral("Saskaitų planas");
    report->BaseName = QStringLiteral("Saskaita");
    report->AddColumn(QStringLiteral("Sąskaita"), 1.2);
    report->AddColumn(QStringLiteral("Pavadinimas"), 5.0);
    report->AddColumn(QStringLiteral("Tipas"), 0.8);
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
        report->AddRow(AccountPlanPrintCells(rows), AccountPlanPrintIsClass(rows));
    return true;
}

void ActRepAccPlan::Show(bool modal) {
    SetBoolModalForm(modal);
    reports::ListReport report;
    QString error;
    if (!Build(ClickedParameters(), &report, &error)) {
        ShowError(error);
        return;
    }
    exported_ = ShowListReport(report);
}

} // namespace orvo::accounts_forms
