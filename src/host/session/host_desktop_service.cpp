#include "host/session/host_desktop_service.h"

namespace orvo::host {

void HostDeskTopService::AddForm(const std::shared_ptr<OrvoForm>& form) {
    if (!form || forms_.contains(form))
        return;
    forms_.append(form);
    if (OnAdd)
        OnAdd(form);
}

void HostDeskTopService::RemoveForm(const std::shared_ptr<OrvoForm>& form) {
    forms_.removeAll(form);
}

} // namespace orvo::host
