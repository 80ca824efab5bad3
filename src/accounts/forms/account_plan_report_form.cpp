#include "accounts/forms/account_plan_report_form.h"

#include "accounts/account_plan_print.h"
#include "accounts/forms/form_support.h"

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

} // namespace orvo::accounts_forms
