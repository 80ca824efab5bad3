// RegisterClosingForms registers the windows of the period's closing work by name:
// frmCoversInFuture (deferred-period covers), frmCoversInFutureParameters (the period of
// one of its rows) and frmAccountsClosing (the editor of a year-end closing, kind
// O0201506). The desktop calls it once at start; repeating it replaces the same
// factories.
#pragma once

namespace orvo {

class FormRegistry;

void RegisterClosingForms(FormRegistry& registry);

} // namespace orvo
