// DesktopServices puts the desktop's windows in place of the window-free services of a
// HostSession: message boxes, the object and group picker, the input box, file dialogs,
// the print preview, the desktop service and the Forms service over the session's form
// registry. It also answers the host's selection dialog ("SelectionDialog", asked by the
// navigators' "Atrinkti") with an input box for the text to look for, and shows what
// the host is asked to show but cannot (objects of other components, help pages).
#pragma once

#include "ui/services/qt_file_dialogs.h"
#include "ui/services/qt_inputs.h"
#include "ui/services/qt_messages.h"
#include "ui/services/qt_pickers.h"
#include "ui/services/qt_print_preview.h"
#include "ui/shell/desktop_forms.h"
#include "ui/shell/period_service.h"
#include "ui/shell/qt_desktop_service.h"

#include <memory>

namespace orvo::host {
class HostSession;
}

namespace orvo::ui {

class DeskTop;

struct DesktopServices {
    std::shared_ptr<QtMessages> Messages;
    std::shared_ptr<QtPickers> Pickers;
    std::shared_ptr<QtInputs> Inputs;
    std::shared_ptr<QtFileDialogs> FileDialogs;
    std::shared_ptr<QtPrintPreview> PrintPreview;
    std::shared_ptr<DeskTopForms> Forms;
    std::shared_ptr<QtDeskTopService> DeskTopService;
    // The view period; its OnChanged is the main window's to set.
    std::shared_ptr<PeriodService> Period;

    // The prompt of the selection dialog.
    static QString SelectionPrompt();

    // Installs the services into the session's services object; `window` parents the
    // dialogs and `desk` shows the forms.
    static DesktopServices Install(host::HostSession& session, QWidget* window, DeskTop* desk);
};

} // namespace orvo::ui
