#include "ui/services/qt_print_preview.h"

#include "ui/services/dialog_driver.h"
#include "ui/services/pdf_preview_dialog.h"

namespace orvo::ui {

bool QtPrintPreview::ShowPdf(const QByteArray& pdf, const QString& title,
                             const QString& suggestedName) {
    PdfPreviewDialog dialog(pdf, title, suggestedName, files_, parent_);
    DialogDriver::Exec(dialog);
    return !dialog.SavedPath().isEmpty();
}

} // namespace orvo::ui
