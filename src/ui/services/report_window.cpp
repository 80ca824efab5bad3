#include "ui/services/report_window.h"

#include "ui/services/dialog_driver.h"
#include "ui/services/mail_sender.h"
#include "ui/services/pdf_preview_dialog.h"

#include <QBoxLayout>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QTemporaryDir>
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
    // Sending writes the document into a folder of its own and hands it to the mail
    // program; the folder outlives the window, since the letter is sent later.
    auto* send = new QToolButton(bar);
    send->setObjectName(QStringLiteral("cmdSendPDF"));
    send->setText(QStringLiteral("Siųsti kaip PDF"));
    send->setToolButtonStyle(Qt::ToolButtonTextOnly);
    row->addWidget(send);
    QObject::connect(send, &QToolButton::clicked, &dialog, [=]() {
        QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/orvo-XXXXXX"));
        folder.setAutoRemove(false);
        const QString path = folder.filePath(baseName + QStringLiteral(".pdf"));
        QFile out(path);
        ResultRecord r;
        if (!folder.isValid() || !out.open(QIODevice::WriteOnly) || out.write(pdf) != pdf.size())
            r = ResultRecord::Failure(1, QStringLiteral("Nepavyko įrašyti failo „%1“.").arg(path));
        out.close();
        if (r.ok())
            r = MailSender::Send(path, title);
        if (!r.ok()) {
            if (messages)
                messages->Warning(r.Text);
            return;
        }
        if (written)
            written->append(path);
    });
    row->addStretch(1);
    // The preview lays its parts out in one column: the exports go on top of it.
    if (auto* column = qobject_cast<QBoxLayout*>(dialog.layout()))
        column->insertWidget(0, bar);
    DialogDriver::Exec(dialog);
}

} // namespace orvo::ui
