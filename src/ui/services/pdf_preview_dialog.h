// PdfPreviewDialog shows a PDF document page by page (pdfView) and saves it (cmdSave,
// through the file dialog it is given) or closes (cmdClose). A document that cannot be
// read shows its reason in lblStatus and cannot be saved.
#pragma once

#include "frame/file_dialogs.h"

#include <QBuffer>
#include <QByteArray>
#include <QDialog>

class QLabel;
class QPdfDocument;
class QPdfView;
class QPushButton;

namespace orvo::ui {

class PdfPreviewDialog : public QDialog {
    Q_OBJECT
public:
    PdfPreviewDialog(const QByteArray& pdf, const QString& title, const QString& suggestedName,
                     FileDialogsPtr files, QWidget* parent = nullptr);
    ~PdfPreviewDialog() override;

    bool Loaded() const { return loaded_; }
    int PageCount() const;
    // The path the document was last saved to, empty when it was not.
    QString SavedPath() const { return savedPath_; }
    // Writes the document to `path`; false (with the reason in lblStatus) on failure.
    bool SaveTo(const QString& path);

private:
    void save();

    QByteArray pdf_;
    QBuffer buffer_;
    QString suggestedName_;
    FileDialogsPtr files_;
    QPdfDocument* document_ = nullptr;
    QPdfView* view_ = nullptr;
    QLabel* status_ = nullptr;
    QPushButton* saveButton_ = nullptr;
    bool loaded_ = false;
    QString savedPath_;
};

} // namespace orvo::ui
