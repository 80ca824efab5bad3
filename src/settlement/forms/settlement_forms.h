// RegisterSettlementForms registers every settling window by name: the selection of
// debts (frmBROperSelect, frmTransferSum, frmBROperSelect_ChangeRate), the debts cover
// (frmDebtsCover), the currency revaluation and exchange (frmCurrencyInfluence,
// frmCurrencyExchange), the deferred-period covers (frmCoversInFuture and its
// parameters) and the accounts closing (frmAccountsClosing). The desktop and the script
// runner call it once at start.
#pragma once

namespace orvo {

class FormRegistry;

void RegisterSettlementForms(FormRegistry& registry);

} // namespace orvo
