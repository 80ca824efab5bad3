#include "settlement/forms/frm_accounts_closing_forms.h"

#include "frame/form_registry.h"
#include "settlement/forms/frm_accounts_closing.h"
#include "settlement/forms/frm_covers_in_future.h"
#include "settlement/forms/frm_covers_in_future_parameters.h"

namespace orvo {

void RegisterClosingForms(FormRegistry& registry) {
    registry.Register(QStringLiteral("frmCoversInFuture"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmCoversInFuture>(); });
    registry.Register(QStringLiteral("frmCoversInFutureParameters"), []() -> OrvoFormPtr {
        return std::make_shared<FrmCoversInFutureParameters>();
    });
    registry.Register(QStringLiteral("frmAccountsClosing"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmAccountsClosing>(); });
}

} // namespace orvo
