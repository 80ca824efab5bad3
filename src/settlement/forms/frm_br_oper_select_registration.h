// RegisterRecordSelectionForms registers the windows of the selection of debts by name:
// frmBROperSelect (the selection that BROperSelect and Debts open), frmTransferSum (the
// sum of one row) and frmBROperSelect_ChangeRate (another rate for one row). The desktop
// calls it once at start; repeating it replaces the same factories.
#pragma once

namespace orvo {

class FormRegistry;

void RegisterRecordSelectionForms(FormRegistry& registry);

} // namespace orvo
