#include "accounts/forms/form_support.h"

#include "frame/forms.h"
#include "frame/messages.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"

#include <QDialog>
#include <QWidget>

namespace orvo::accounts_forms {

OrvoServicesPtr Services() {
    return OrvoS();
}

BusinessObjectPtr ReportBusinessObject() {
    const OrvoServicesPtr s = Services();
    const OrvoObjectsServicePtr objects = s ? s->ObjectsService() : nullptr;
    const OrvoObjectUIPtr ui = objects ? objects->GetObjectUI(QStringLiteral("O0200400")) : nullptr;
    return ui ? ui->BO() : nullptr;
}

OrvoFormPtr ShowFormModal(const QString& name, const OrvoObjectUIOPtr& object,
                          const QString& clicked) {
    const OrvoServicesPtr s = Services();
    const FormsPtr forms = s ? s->FormsService() : nullptr;
    const OrvoFormPtr form = forms ? forms->CreateForm(name) : nullptr;
    if (!form)
        return nullptr;
    form->SetBoolModalForm(true);
    if (object)
        form->SetOrvoObjectUIO(object);
    form->SetClickedParameters(clicked);
    form->Show(true);
    return form;
}

void CloseFormWindow(OrvoForm& form, QWidget* widget, bool accepted) {
    if (widget) {
        if (auto* dialog = qobject_cast<QDialog*>(widget->window())) {
            if (accepted)
                dialog->accept();
            else
                dialog->reject();
            return;
        }
    }
    form.UnloadShowOrvoObject();
}

QString AppTitle() {
    return QStringLiteral("Orvo Apskaita");
}

} // namespace orvo::accounts_forms
