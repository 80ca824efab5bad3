#include "accounts/forms/template_report_form.h"

#include "accounts/forms/form_support.h"
#include "accounts/template_rules.h"

namespace orvo::accounts_forms {

bool ActRepTemplates::Build(const QString& mode, reports::ListReport* report, QString* error) {
    const RecordsetPtr rows = TemplatePrintRows(ReportBusinessObject(), mode, error);
    if (!rows)
        return false;
    report->Title = QStringLiteral("Šablonai");
    report->BaseName = QStringLiteral("Sablonai");
    report->AddColumn(QStringLiteral("Pavadinimas"), 4.0);
    report->AddColumn(QStringLiteral("Debetas"), 1.0);
    report->AddColumn(QStringLiteral("Kreditas"), 1.0);
    report->AddColumn(QStringLiteral("Koeficijentas"), 1.0, true);
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        const Value factor = rows->Field(QStringLiteral("Factor"));
        const QString factorText = factor.isNull()
                                       ? QString()
                                       : QString::number(factor.toDouble(), 'g', 12)
                                             .replace(QLatin1Char('.'), QLatin1Char(','));
        report->AddRow({rows->Field(QStringLiteral("Pav")).toString(),
                        rows->Field(QStringLiteral("Debit")).toString(),
                        rows->Field(QStringLiteral("Kredit")).toString(), factorText},
                       rows->Field(QStringLiteral("GroupFlag")).toInt32() != 0);
    }
    return true;
}

} // namespace orvo::accounts_forms
