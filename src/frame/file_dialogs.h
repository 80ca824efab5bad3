// FileDialogs is the host's file and folder chooser: a file to open, a file to save to
// and a folder. Each answer is a path, or nothing when the user cancels. The desktop
// shows real dialogs; a face without windows has none, and callers act as on a cancel.
#pragma once

#include <QString>
#include <memory>
#include <optional>

namespace orvo {

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // `filter` is in the form "Tekstas (*.txt *.acc)"; several are joined by ";;".
    virtual std::optional<QString> OpenFileName(const QString& title, const QString& filter,
                                                const QString& folder = QString()) = 0;
    // `suggested` is the path or name offered at first.
    virtual std::optional<QString> SaveFileName(const QString& title, const QString& filter,
                                                const QString& suggested = QString()) = 0;
    virtual std::optional<QString> FolderName(const QString& title,
                                              const QString& folder = QString()) = 0;
};

using FileDialogsPtr = std::shared_ptr<FileDialogs>;

} // namespace orvo
