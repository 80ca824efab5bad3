#include "settlement/forms/frm_br_oper_select_registration.h"

#include "frame/form_registry.h"
#include "settlement/forms/frm_br_oper_select.h"
#include "settlement/forms/frm_br_oper_select_change_rate.h"
#include "settlement/forms/frm_transfer_sum.h"

namespace orvo {

void RegisterRecordSelectionForms(FormRegistry& registry) {
    registry.Register(QStringLiteral("frmBROperSelect"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmBROperSelect>(); });
    registry.Register(QStringLiteral("frmTransferSum"), []() -> OrvoFormPtr {
        return std::static_pointer_cast<ui::WidgetForm>(std::make_shared<FrmTransferSum>());
    });
    registry.Register(QStringLiteral("frmBROperSelect_ChangeRate"), []() -> OrvoFormPtr {
        return std::static_pointer_cast<ui::WidgetForm>(
            std::make_shared<FrmBROperSelectChangeRate>());
    });
}

} // namespace orvo
