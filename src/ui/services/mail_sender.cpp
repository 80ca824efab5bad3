#include "ui/services/mail_sender.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace orvo::ui {

QString MailSender::Program() {
    const QString chosen = qEnvironmentVariable("ORVO_MAIL_COMMAND").trimmed();
    return chosen.isEmpty() ? QStringLiteral("xdg-email") : chosen;
}

ResultRecord MailSender::Send(const QString& file, const QString& subject) {
    const QString program = Program();
    // A name is looked up on the PATH; a path must lead to a program.
    QString found = QStandardPaths::findExecutable(program);
    if (program.contains(QLatin1Char('/')))
        found = QFileInfo(program).isExecutable() ? program : QString();
    const QString kept = QStringLiteral("PDF failas išsaugotas: %1").arg(file);
    if (found.isEmpty())
        return ResultRecord::Failure(
            1, QStringLiteral("Pašto programa „%1“ nerasta.\n%2").arg(program, kept));
    // The mail program lives on after this window closes; it is not ours to wait for.
    if (!QProcess::startDetached(
            found, {QStringLiteral("--subject"), subject, QStringLiteral("--attach"), file}))
        return ResultRecord::Failure(
            1, QStringLiteral("Pašto programa „%1“ neatsidarė.\n%2").arg(program, kept));
    return ResultRecord::Success();
}

} // namespace orvo::ui
