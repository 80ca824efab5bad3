// HostDeskTopService keeps the forms placed on the desktop, so that they outlive the
// call that opened them; the desktop face also shows them.
#pragma once

#include "frame/orvo_desktop_service.h"
#include "frame/orvo_form.h"

#include <QList>
#include <functional>

namespace orvo::host {

class HostDeskTopService : public OrvoDeskTopService {
public:
    void AddForm(const std::shared_ptr<OrvoForm>& form) override;
    void RemoveForm(const std::shared_ptr<OrvoForm>& form) override;
    const QList<OrvoFormPtr>& Forms() const { return forms_; }

    std::function<void(const OrvoFormPtr&)> OnAdd;

private:
    QList<OrvoFormPtr> forms_;
};

} // namespace orvo::host
