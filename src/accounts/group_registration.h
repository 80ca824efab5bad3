// RegisterGroupClasses adds the operation groups to the component's ObjectRegistry: the
// navigator UI0201400 and the data object UIO0201400 under the code O0201400. The faces
// call it once at start; repeating it is harmless.
#pragma once

namespace orvo {

void RegisterGroupClasses();

} // namespace orvo
