#include "ui/catalogues/catalogue_forms.h"

#include "frame/form_registry.h"
#include "host/catalogues/catalogue_editor_fields.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"
#include "ui/catalogues/catalogue_form.h"
#include "ui/catalogues/currency_form.h"
#include "ui/catalogues/user_form.h"

namespace orvo {

void RegisterCatalogueForms(FormRegistry& registry) {
    for (const QString& code : host::CatalogueEditorKinds()) {
        const QString name = host::CatalogueFormNameOf(code);
        if (code == host::kinds::Currency)
            registry.Register(name,
                              []() -> OrvoFormPtr { return std::make_shared<ui::CurrencyForm>(); });
        else if (code == host::kinds::User)
            registry.Register(name,
                              []() -> OrvoFormPtr { return std::make_shared<ui::UserForm>(); });
        else
            registry.Register(name, [name]() -> OrvoFormPtr {
                return std::make_shared<ui::CatalogueForm>(name);
            });
    }
    registry.Register(host::kOwnFirmFormName, []() -> OrvoFormPtr {
        return std::make_shared<ui::CatalogueForm>(host::kOwnFirmFormName);
    });
}

} // namespace orvo
