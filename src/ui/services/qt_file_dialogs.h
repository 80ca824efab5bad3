// QtFileDialogs is the desktop's file and folder chooser over Qt's own file dialog
// (not the platform's, so that it looks the same everywhere and a test can drive it:
// the dialog is a QFileDialog named dlgFile, and selectFile + accept answer it).
#pragma once

#include "frame/file_dialogs.h"

#include <QPointer>
#include <QWidget>

namespace orvo::ui {

class QtFileDialogs : public FileDialogs {
public:
    explicit QtFileDialogs(QWidget* parent = nullptr) : parent_(parent) {}

    std::optional<QString> OpenFileName(const QString& title, const QString& filter,
                                        const QString& folder = QString()) override;
    std::optional<QString> SaveFileName(const QString& title, const QString& filter,
                                        const QString& suggested = QString()) override;
    std::optional<QString> FolderName(const QString& title,
                                      const QString& folder = QString()) override;

    void SetParent(QWidget* parent) { parent_ = parent; }

private:
    QPointer<QWidget> parent_;
};

} // namespace orvo::ui
