// RegisterDebtsCoverForms registers the debts cover window frmDebtsCover by name, so
// that the operation editor's "Skolų dengimas" and a group's next action open it on the
// operation. Repeating it replaces the same factory.
#pragma once

namespace orvo {

class FormRegistry;

void RegisterDebtsCoverForms(FormRegistry& registry);

} // namespace orvo
