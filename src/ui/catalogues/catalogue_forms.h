// RegisterCatalogueForms registers the windows of the host's catalogues by name:
// frmFirm, frmPerson, frmEmployee, frmBank, frmBankAccount, frmCurrency (with the daily
// rates), frmUser (with the user's rights) and frmMyFirm (the firm that keeps the
// books). The catalogue navigators open them with Action 1. Repeating the call replaces
// the same factories.
#pragma once

namespace orvo {

class FormRegistry;

void RegisterCatalogueForms(FormRegistry& registry);

} // namespace orvo
