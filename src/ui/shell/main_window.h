// MainWindow is the desktop application's one main window, titled with the session's
// title: the host's tree on the left (HostTree, built from the component's
// DllInicialize followed by the host's own branch, HostLayout) and the desktop of open
// forms on the right (DeskTop). Making it puts the desktop's services into the session;
// the tree's dated lists follow the user's view period. Ctrl+1 goes to the tree, Ctrl+2
// to the desktop, so the window can be worked without a mouse.
#pragma once

#include "frame/plain_layout.h"
#include "ui/shell/desktop_services.h"

#include <QMainWindow>

namespace orvo::host {
class HostSession;
}

namespace orvo::ui {

class DeskTop;
class HostTree;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(host::HostSession& session, QWidget* parent = nullptr);
    ~MainWindow() override;

    HostTree* Tree() const { return tree_; }
    DeskTop* Desk() const { return desk_; }
    const DesktopServices& Services() const { return services_; }
    const PlainLayout& Layout() const { return layout_; }
    // The result of the component's registration.
    ResultRecord Registration() const { return registration_; }

    // Opens a registered form on the desktop bound to `object` (which may be null); a
    // name nobody registered is refused through Messages and gives null.
    OrvoFormPtr OpenForm(const QString& name, const OrvoObjectUIOPtr& object);

    // Renders the window as it stands into a PNG file; false when it cannot be written.
    bool SaveScreenshot(const QString& path);

private:
    void buildMenus();

    host::HostSession& session_;
    HostTree* tree_ = nullptr;
    DeskTop* desk_ = nullptr;
    DesktopServices services_;
    PlainLayout layout_;
    ResultRecord registration_;
};

} // namespace orvo::ui
