#include "accounts/forms/list_report_preview.h"

#include "accounts/forms/form_support.h"
#include "core/today.h"
#include "frame/messages.h"
#include "reports/pdf_list_writer.h"
#include "reports/rtf_list_writer.h"
#include "reports/xlsx_list_writer.h"
#include "ui/services/report_window.h"
#include "ui/shell/desk_top.h"

namespace orvo::accounts_forms {

QStringList ShowListReport(const reports::ListReport& report) {
    QString error;
    const QDate printed = Today();
    const QByteArray pdf = reports::PdfListWriter::Render(report, printed, &error);
    if (pdf.isEmpty()) {
        ShowError(error);
        return {};
    }
    QVector<ui::ReportExport> exports;
    exports.append(
        {QStringLiteral("Eksportas į RTF"), QStringLiteral("cmdExportRTF"),
         QStringLiteral("RTF dokumentai (*.rtf)"), QStringLiteral(".rtf"),
         [report](const QString& path) { return reports::RtfListWriter::Write(report, path); }});
    exports.append(
        {QStringLiteral("Eksportas į EXCEL"), QStringLiteral("cmdExportExcel"),
         QStringLiteral("Excel knygos (*.xlsx)"), QStringLiteral(".xlsx"),
         [report](const QString& path) { return reports::XlsxListWriter::Write(report, path); }});
    exports.append({QStringLiteral("Eksportas į PDF"), QStringLiteral("cmdExportPDF"),
                    QStringLiteral("PDF dokumentai (*.pdf)"), QStringLiteral(".pdf"),
                    [report, printed](const QString& path) {
                        return reports::PdfListWriter::Write(report, path, printed);
                    }});
    const OrvoServicesPtr s = Services();
    QStringList written;
    ui::ReportWindow::Show(pdf, report.Title, report.BaseName, exports,
                           s ? s->FileDialogsService() : nullptr,
                           s ? s->MessagesService() : nullptr, ui::DeskTop::Current(), &written);
    return written;
}

} // namespace orvo::accounts_forms
