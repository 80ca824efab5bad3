// ReportWindow is the print preview of a printed list with a toolbar of exports: the
// document's pages (the PdfPreviewDialog, frmPrintPreview) and above them one button
// per export ("Eksportas į RTF", ...). A button asks the file dialog for a path,
// offering the report's base name with the export's suffix, and has the export write
// the file; a refused write shows its text as an error. The window knows nothing of how
// a file is made, so every printed list of the program can offer its own exports. Every
// report also offers "Siųsti kaip PDF" (cmdSendPDF): the document goes to the mail
// program as the attachment of a new letter (MailSender).
#pragma once

#include "core/results.h"
#include "frame/file_dialogs.h"
#include "frame/messages.h"

#include <QByteArray>
#include <QString>
#include <QVector>
#include <functional>

class QWidget;

namespace orvo::ui {

struct ReportExport {
    // The button's caption, "Eksportas į PDF".
    QString Caption;
    // The button's objectName, so that tests and scripts find it.
    QString ObjectName;
    // The file dialog's filter, "PDF dokumentai (*.pdf)".
    QString Filter;
    // The suffix added to the base name and to a typed name without it, ".pdf".
    QString Suffix;
    // Writes the export to the path.
    std::function<ResultRecord(const QString& path)> Write;
};

class ReportWindow {
public:
    // Shows the document and returns when the window is closed. `baseName` names the
    // files offered; the paths written are kept in `written` when it is given.
    static void Show(const QByteArray& pdf, const QString& title, const QString& baseName,
                     const QVector<ReportExport>& exports, FileDialogsPtr files,
                     MessagesPtr messages, QWidget* parent = nullptr,
                     QStringList* written = nullptr);
};

} // namespace orvo::ui
