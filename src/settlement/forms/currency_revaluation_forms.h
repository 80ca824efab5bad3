// RegisterCurrencyForms registers the two currency windows of a financial operation by
// name: frmCurrencyInfluence (the revaluation of an account's currency balances) and
// frmCurrencyExchange (the purchase and sale of currency). The desktop calls it once
// at start; repeating it replaces the same factories.
#pragma once

namespace orvo {

class FormRegistry;

void RegisterCurrencyForms(FormRegistry& registry);

} // namespace orvo
