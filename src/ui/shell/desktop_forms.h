// DeskTopForms is the desktop's Forms service: the forms registered by name in the
// session's FormRegistry, made on request. CreateForm answers null for a name nobody
// registered, as the service's callers expect (they refuse in their own words); the
// desktop's own openings (OpenForm) refuse a missing form through Messages.
#pragma once

#include "frame/form_registry.h"
#include "frame/forms.h"
#include "frame/messages.h"

#include <memory>

namespace orvo::ui {

class DeskTopForms : public Forms {
public:
    DeskTopForms(std::shared_ptr<FormRegistry> registry, MessagesPtr messages)
        : registry_(std::move(registry)), messages_(std::move(messages)) {}

    OrvoFormPtr CreateForm(const QString& name) override;

    // A new form of the name, or null after the box "Langas „name“ dar neįdiegtas."
    OrvoFormPtr OpenForm(const QString& name);
    static QString MissingFormText(const QString& name);

    std::shared_ptr<FormRegistry> Registry() const { return registry_; }

private:
    std::shared_ptr<FormRegistry> registry_;
    MessagesPtr messages_;
};

} // namespace orvo::ui
