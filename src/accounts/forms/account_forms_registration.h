// RegisterAccountForms registers the windows of the chart of accounts and of operation
// templates by name: frmAccountPlan, ActRepAccPlan, frmBRTemplate, frmBRTemplateAcc,
// frmBROperTemplateSelect and ActRepTemplates. The desktop calls it once at start;
// repeating it replaces the same factories.
#pragma once

namespace orvo {

class FormRegistry;

void RegisterAccountForms(FormRegistry& registry);

} // namespace orvo
