// RegisterAccountClasses adds the chart of accounts to the component's ObjectRegistry:
// the navigator UI0200400 and the data object UIO0200400, under the root code O0200400
// and the record code O0200401, and with them the operation groups (UI0201400,
// UIO0201400) and the templates (UI0201600, UIO0201600).
// The faces call it once at start; repeating it is harmless.
#pragma once

namespace orvo {

void RegisterAccountClasses();

} // namespace orvo
