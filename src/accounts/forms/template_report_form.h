// ActRepTemplates is the printed list of operation templates, "Šablonai": Pavadinimas,
// Debetas, Kreditas and Koeficijentas, a group's row in bold followed by what it holds,
// shown in the report window with its exports (files named "Sablonai"). Its clicked
// parameters are "ALL" for every group, or the ID of the group to print.
#pragma once

#include "accounts/forms/list_report_form.h"

namespace orvo::accounts_forms {

class ActRepTemplates : public ListReportForm {
public:
    ActRepTemplates()
        : ListReportForm(QStringLiteral("ActRepTemplates"), &ActRepTemplates::Build) {}

    static bool Build(const QString& mode, reports::ListReport* report, QString* error);
};

} // namespace orvo::accounts_forms
