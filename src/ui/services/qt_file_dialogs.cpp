#include "ui/services/qt_file_dialogs.h"

#include "ui/services/dialog_driver.h"

#include <QFileDialog>
#include <QFileInfo>

namespace orvo::ui {

namespace {

std::optional<QString> run(QFileDialog& dialog) {
    dialog.setObjectName(QStringLiteral("dlgFile"));
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    if (DialogDriver::Exec(dialog) != QDialog::Accepted)
        return std::nullopt;
    const QStringList files = dialog.selectedFiles();
    if (files.isEmpty() || files.first().isEmpty())
        return std::nullopt;
    return files.first();
}

} // namespace

std::optional<QString> QtFileDialogs::OpenFileName(const QString& title, const QString& filter,
                                                   const QString& folder) {
    QFileDialog dialog(parent_, title, folder, filter);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog);
}

std::optional<QString> QtFileDialogs::SaveFileName(const QString& title, const QString& filter,
                                                   const QString& suggested) {
    const QFileInfo info(suggested);
    QFileDialog dialog(parent_, title,
                       suggested.contains(QLatin1Char('/')) ? info.path() : QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!suggested.isEmpty())
        dialog.selectFile(info.fileName());
    return run(dialog);
}

std::optional<QString> QtFileDialogs::FolderName(const QString& title, const QString& folder) {
    QFileDialog dialog(parent_, title, folder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly, true);
    return run(dialog);
}

} // namespace orvo::ui
