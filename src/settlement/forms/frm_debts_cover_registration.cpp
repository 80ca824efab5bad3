#include "settlement/forms/frm_debts_cover_registration.h"

#include "frame/form_registry.h"
#include "settlement/forms/frm_debts_cover.h"

namespace orvo {

void RegisterDebtsCoverForms(FormRegistry& registry) {
    registry.Register(QStringLiteral("frmDebtsCover"), []() -> OrvoFormPtr {
        return std::static_pointer_cast<ui::WidgetForm>(std::make_shared<FrmDebtsCover>());
    });
}

} // namespace orvo
