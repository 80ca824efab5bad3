#include "operations/forms/operation_forms.h"

#include "frame/form_registry.h"
#include "operations/forms/frm_br_copy_by_monthes.h"
#include "operations/forms/frm_br_oper.h"
#include "operations/forms/frm_br_oper_record.h"
#include "operations/forms/frm_comment_list.h"
#include "operations/forms/frm_protocol.h"

namespace orvo {

void RegisterOperationForms(FormRegistry& registry) {
    registry.Register(QStringLiteral("frmBROper"), []() -> OrvoFormPtr {
        return std::static_pointer_cast<ui::WidgetForm>(std::make_shared<FrmBROper>());
    });
    registry.Register(QStringLiteral("frmBROperRecord"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmBROperRecord>(); });
    registry.Register(QStringLiteral("frmBRCopyByMonthes"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmBRCopyByMonthes>(); });
    registry.Register(QStringLiteral("frmCommentList"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmCommentList>(); });
    registry.Register(QStringLiteral("frmProtocol"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmProtocol>(); });
}

} // namespace orvo
