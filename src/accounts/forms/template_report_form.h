// ActRepTemplates is the printed list of operation templates, "Šablonai": Pavadinimas,
// Debetas, Kreditas and Koeficijentas, a group's row in bold followed by what it holds,
// shown in the report window with its exports (files named "Sablonai"). Its clicked
// parameters are "ALL" for every group, or the ID of the group to print.
#pragma once

#include "frame/orvo_form.h"
#include "reports/list_report.h"

#include <QStringList>

namespace orvo::accounts_forms {

class ActRepTemplates : public OrvoForm {
public:
    QString FormName() const override { return QStringLiteral("ActRepTemplates"); }

    static bool Build(const QString& mode, reports::ListReport* report, QString* error);

    void Show(bool modal) override;
    void UnloadShowOrvoObject() override {}

    QStringList Exported() const { return exported_; }

private:
    QStringList exported_;
};

} // namespace orvo::accounts_forms
