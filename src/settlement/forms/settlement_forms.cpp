#include "settlement/forms/settlement_forms.h"

#include "settlement/forms/currency_revaluation_forms.h"
#include "settlement/forms/frm_accounts_closing_forms.h"
#include "settlement/forms/frm_br_oper_select_registration.h"
#include "settlement/forms/frm_debts_cover_registration.h"

namespace orvo {

void RegisterSettlementForms(FormRegistry& registry) {
    RegisterRecordSelectionForms(registry);
    RegisterDebtsCoverForms(registry);
    RegisterCurrencyForms(registry);
    RegisterClosingForms(registry);
}

} // namespace orvo
