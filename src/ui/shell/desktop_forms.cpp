#include "ui/shell/desktop_forms.h"

namespace orvo::ui {

QString DeskTopForms::MissingFormText(const QString& name) {
    return QStringLiteral("Langas „%1“ dar neįdiegtas.").arg(name);
}

OrvoFormPtr DeskTopForms::CreateForm(const QString& name) {
    return registry_ ? registry_->CreateForm(name) : nullptr;
}

OrvoFormPtr DeskTopForms::OpenForm(const QString& name) {
    OrvoFormPtr form = CreateForm(name);
    if (!form && messages_)
        messages_->Error(MissingFormText(name));
    return form;
}

} // namespace orvo::ui
