// PrintPreview shows a finished document (a PDF) to the user, who may read it, page by
// page, and save it to a file. It returns when the preview is closed, with true when the
// document was saved.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

namespace orvo {

class PrintPreview {
public:
    virtual ~PrintPreview() = default;
    // `suggestedName` is the file name offered when the user saves.
    virtual bool ShowPdf(const QByteArray& pdf, const QString& title,
                         const QString& suggestedName) = 0;
};

using PrintPreviewPtr = std::shared_ptr<PrintPreview>;

} // namespace orvo
