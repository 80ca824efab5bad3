#include "ui/services/report_window.h"

#include "ui/services/dialog_driver.h"
#include "ui/services/pdf_preview_dialog.h"

#include <QBoxLayout>
#include <QHBoxLayout>
#include <QToolButton>
#include <QWidget>

namespace orvo::ui {

void ReportWindow::Show(const QByteArray& pdf, const QString& title, const QString& baseName,
                        const QVector<ReportExport>& exports, FileDialogsPtr files,
                        MessagesPtr messages, QWidget* parent, QStringList* written) {
    PdfPreviewDialog dialog(pdf, title, baseName + QStringLiteral(".pdf"), files, parent);
    auto* bar = new QWidget(&dialog);
    bar->setObjectName(QStringLiteral("tbrExports"));
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    for (const ReportExport& e : exports) {
        auto* button = new QToolButton(bar);
        button->setObjectName(e.ObjectName);
        button->setText(e.Caption);
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        row->addWidget(button);
        QObject::connect(button, &QToolButton::clicked, &dialog, [=]() {
            if (!files || !e.Write)
                return;
            const std::optional<QString> chosen =
                files->SaveFileName(e.Caption, e.Filter, baseName + e.Suffix);
            if (!chosen || chosen->isEmpty())
                return;
            QString path = *chosen;
            if (!path.endsWith(e.Suffix, Qt::CaseInsensitive))
                path += e.Suffix;
            const ResultRecord r = e.Write(path);
            if (!r.ok()) {
                if (messages)
                    messages->Error(r.Text);
                return;
            }
            if (written)
                written->append(path);
        });
    }
    row->addStretch(1);
    // The preview lays its parts out in one column: the exports go on top of it.
    if (auto* column = qobject_cast<QBoxLayout*>(dialog.layout()))
        column->insertWidget(0, bar);
    DialogDriver::Exec(dialog);
}

} // namespace orvo::ui
