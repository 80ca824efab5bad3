// RegisterTemplateClasses adds operation templates to the component's ObjectRegistry:
// the navigator UI0201600 and the data object UIO0201600 under the code O0201600. The
// faces call it once at start; repeating it is harmless.
#pragma once

namespace orvo {

void RegisterTemplateClasses();

} // namespace orvo
