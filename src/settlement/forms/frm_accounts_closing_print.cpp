#include "settlement/forms/frm_accounts_closing_print.h"

#include "core/number_text.h"
#include "core/today.h"
#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/print_preview.h"
#include "reports/pdf_list_writer.h"

namespace orvo {

reports::ListReport AccountsClosingReport(const AccountsClosing& closing) {
    reports::ListReport report;
    report.Title = QStringLiteral("SĄSKAITŲ UŽDARYMAS");
    report.Subtitle = closing.Date.toString(QStringLiteral("yyyy.MM.dd")) +
                      QStringLiteral(" Nr. ") + closing.Serija + closing.Number;
    report.BaseName = QStringLiteral("Saskaitu_uzdarymas");
    report.AddColumn(QStringLiteral(" Nr."), 0.6);
    report.AddColumn(QStringLiteral("Debeto b/s"), 1.2);
    report.AddColumn(QStringLiteral("Kredito b/s"), 1.2);
    report.AddColumn(QStringLiteral("Suma, ") + closing.BaseCurrency(), 1.5, true);
    report.AddColumn(QStringLiteral("Pavadinimas"), 4.5);
    report.AddRow(
        {QStringLiteral("5 kl. sumos"), QString(), QString(), closing.Total5Text, QString()});
    report.AddRow(
        {QStringLiteral("6 kl. sumos"), QString(), QString(), closing.Total6Text, QString()});
    report.AddRow({QStringLiteral("Perkėlimai")}, true);
    double total = 0;
    for (const AccountsClosing::PrintLine& line : closing.PrintLines()) {
        report.AddRow({line.Code, line.Debit, line.Credit, FormatAmount(line.SumA), line.Name});
        total += line.SumA;
    }
    report.AddRow({QStringLiteral("Viso:"), QString(), QString(), FormatAmount(total), QString()},
                  true);
    return report;
}

bool PrintAccountsClosing(const AccountsClosing& closing) {
    QString error;
    const reports::ListReport report = AccountsClosingReport(closing);
    const QByteArray pdf = reports::PdfListWriter::Render(report, Today(), &error);
    if (pdf.isEmpty()) {
        ShowError(error);
        return false;
    }
    const OrvoServicesPtr s = OrvoS();
    const PrintPreviewPtr preview = s ? s->PrintPreviewService() : nullptr;
    if (preview)
        preview->ShowPdf(pdf, report.Title, report.BaseName + QStringLiteral(".pdf"));
    return true;
}

} // namespace orvo
