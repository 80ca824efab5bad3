// QtPrintPreview is the desktop's print preview: a PdfPreviewDialog over the document,
// saving through the file dialogs it is given.
#pragma once

#include "frame/file_dialogs.h"
#include "frame/print_preview.h"

#include <QPointer>
#include <QWidget>

namespace orvo::ui {

class QtPrintPreview : public PrintPreview {
public:
    explicit QtPrintPreview(FileDialogsPtr files, QWidget* parent = nullptr)
        : files_(std::move(files)), parent_(parent) {}

    bool ShowPdf(const QByteArray& pdf, const QString& title,
                 const QString& suggestedName) override;

    void SetParent(QWidget* parent) { parent_ = parent; }

private:
    FileDialogsPtr files_;
    QPointer<QWidget> parent_;
};

} // namespace orvo::ui
