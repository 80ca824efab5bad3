// PeriodDialog is the host's own window of the view period (frmViewPeriod, "Peržiūros
// laikotarpis"): "Nuo:" and "Iki:" each a check box (chkFrom, chkTo) that bounds the
// period on that side with the date beside it (dtpFrom, dtpTo, yyyy.MM.dd); an unchecked
// side is no bound. "Gerai" (cmdOK) takes the period unless it starts after it ends,
// which is refused with a warning and leaves the window open; "Atšaukti" (cmdCancel)
// changes nothing.
#pragma once

#include "frame/messages.h"
#include "ui/shell/view_period.h"

#include <optional>

class QWidget;

namespace orvo::ui {

class PeriodDialog {
public:
    static QString Title() { return QStringLiteral("Peržiūros laikotarpis"); }

    // Asks for a period starting from `current`; nothing when cancelled.
    static std::optional<ViewPeriod> Ask(QWidget* parent, const ViewPeriod& current,
                                         const MessagesPtr& messages);
};

} // namespace orvo::ui
