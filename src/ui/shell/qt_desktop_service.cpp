#include "ui/shell/qt_desktop_service.h"

#include "ui/shell/desk_top.h"

namespace orvo::ui {

void QtDeskTopService::SetDeskTop(DeskTop* desk) {
    desk_ = desk;
}

void QtDeskTopService::AddForm(const std::shared_ptr<OrvoForm>& form) {
    if (!form)
        return;
    if (!forms_.contains(form))
        forms_.append(form);
    if (desk_)
        desk_->Present(form);
}

void QtDeskTopService::RemoveForm(const std::shared_ptr<OrvoForm>& form) {
    forms_.removeAll(form);
    if (desk_ && form)
        desk_->Close(form.get());
}

void QtDeskTopService::RefreshObject(const QString& oidr, const QString& parentOidr) {
    if (OnRefresh)
        OnRefresh(oidr, parentOidr);
}

} // namespace orvo::ui
