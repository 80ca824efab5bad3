#include "settlement/forms/currency_revaluation_forms.h"

#include "frame/form_registry.h"
#include "settlement/forms/frm_currency_exchange.h"
#include "settlement/forms/frm_currency_influence.h"

namespace orvo {

void RegisterCurrencyForms(FormRegistry& registry) {
    registry.Register(QStringLiteral("frmCurrencyInfluence"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmCurrencyInfluence>(); });
    registry.Register(QStringLiteral("frmCurrencyExchange"),
                      []() -> OrvoFormPtr { return std::make_shared<FrmCurrencyExchange>(); });
}

} // namespace orvo
