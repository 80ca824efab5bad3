#include "ui/services/pdf_preview_dialog.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QPdfDocument>
#include <QPdfView>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvo::ui {

PdfPreviewDialog::PdfPreviewDialog(const QByteArray& pdf, const QString& title,
                                   const QString& suggestedName, FileDialogsPtr files,
                                   QWidget* parent)
    : QDialog(parent), pdf_(pdf), suggestedName_(suggestedName), files_(std::move(files)) {
    setObjectName(QStringLiteral("frmPrintPreview"));
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    document_ = new QPdfDocument(this);
    view_ = new QPdfView(this);
    view_->setObjectName(QStringLiteral("pdfView"));
    view_->setPageMode(QPdfView::PageMode::MultiPage);
    view_->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    status_ = new QLabel(this);
    status_->setObjectName(QStringLiteral("lblStatus"));
    auto* buttons = new QDialogButtonBox(this);
    saveButton_ = buttons->addButton(QStringLiteral("Išsaugoti..."), QDialogButtonBox::ActionRole);
    saveButton_->setObjectName(QStringLiteral("cmdSave"));
    QPushButton* close =
        buttons->addButton(QStringLiteral("Uždaryti"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("cmdClose"));
    layout->addWidget(view_, 1);
    layout->addWidget(status_);
    layout->addWidget(buttons);
    resize(800, 900);

    // The buffer lives as long as the dialog: the document reads pages from it lazily.
    buffer_.setData(pdf_);
    buffer_.open(QIODevice::ReadOnly);
    document_->load(&buffer_);
    loaded_ = document_->status() == QPdfDocument::Status::Ready && document_->pageCount() > 0;
    if (loaded_) {
        view_->setDocument(document_);
        status_->setText(QStringLiteral("Puslapių: %1").arg(document_->pageCount()));
    } else {
        status_->setText(QStringLiteral("Dokumento perskaityti nepavyko."));
    }
    saveButton_->setEnabled(loaded_);
    connect(saveButton_, &QPushButton::clicked, this, &PdfPreviewDialog::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

PdfPreviewDialog::~PdfPreviewDialog() {
    // The view renders pages on its own thread from the document, which reads the
    // buffer: take them down view first, before the buffer member goes, rather than in
    // the order the base class would delete its children.
    view_->setDocument(nullptr);
    delete view_;
    document_->close();
    delete document_;
}

int PdfPreviewDialog::PageCount() const {
    return loaded_ ? document_->pageCount() : 0;
}

void PdfPreviewDialog::save() {
    if (!files_)
        return;
    const std::optional<QString> path =
        files_->SaveFileName(QStringLiteral("Išsaugoti dokumentą"),
                             QStringLiteral("PDF dokumentai (*.pdf)"), suggestedName_);
    if (path)
        SaveTo(*path);
}

bool PdfPreviewDialog::SaveTo(const QString& path) {
    if (!loaded_)
        return false;
    QString target = path;
    if (!target.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        target += QStringLiteral(".pdf");
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf_) != pdf_.size()) {
        status_->setText(QStringLiteral("Nepavyko įrašyti failo „%1“.").arg(target));
        return false;
    }
    file.close();
    savedPath_ = target;
    status_->setText(QStringLiteral("Išsaugota: %1").arg(target));
    return true;
}

} // namespace orvo::ui
