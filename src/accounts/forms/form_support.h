// Small pieces every window of the chart and the templates shares: the services they
// reach the host through, closing a form's window whether it runs in a dialog or on
// the desktop, and a labelled row of a form's grid.
#pragma once

#include "frame/business_object.h"
#include "frame/orvo_form.h"
#include "frame/orvo_services.h"

#include <QString>

class QWidget;
class QGridLayout;

namespace orvo::accounts_forms {

OrvoServicesPtr Services();
// The business object the printed lists read through (the chart's navigator's).
BusinessObjectPtr ReportBusinessObject();
// Shows the named form modally with its data object and clicked parameters; null when
// no such form is registered (the caller has shown nothing, so it says so itself).
OrvoFormPtr ShowFormModal(const QString& name, const OrvoObjectUIOPtr& object,
                          const QString& clicked);
// Closes the window of the form: the dialog it runs in (accepted), or its desktop window.
void CloseFormWindow(OrvoForm& form, QWidget* widget, bool accepted);
// The program's own title, which the editors' boxes carry.
QString AppTitle();

} // namespace orvo::accounts_forms
