// RegisterOperationForms registers the windows of financial operations by name:
// frmBROper (the operation editor), frmBROperRecord (the entry card that ShowBR
// opens), frmBRCopyByMonthes (spreading an entry over months), frmCommentList (the ready
// comments) and frmProtocol (who made and changed the operation). The desktop calls it
// once at start; repeating it replaces the same factories.
#pragma once

namespace orvo {

class FormRegistry;

void RegisterOperationForms(FormRegistry& registry);

} // namespace orvo
