// ListReportForm is the printed list that a navigator opens by name (ActRepAccPlan,
// ActRepTemplates): its clicked parameters choose the rows, its builder makes the
// ListReport, and showing it puts the report in the report window with its exports. A
// report that cannot be read shows why in an error box instead.
#pragma once

#include "frame/orvo_form.h"
#include "reports/list_report.h"

#include <QStringList>

namespace orvo::accounts_forms {

class ListReportForm : public OrvoForm {
public:
    using Builder = bool (*)(const QString& parameters, reports::ListReport* report,
                             QString* error);

    ListReportForm(const QString& name, Builder build) : name_(name), build_(build) {}

    QString FormName() const override { return name_; }
    void Show(bool modal) override;
    void UnloadShowOrvoObject() override {}

    // The files exported while the report was shown last.
    QStringList Exported() const { return exported_; }

private:
    QString name_;
    Builder build_;
    QStringList exported_;
};

} // namespace orvo::accounts_forms
