#include "core/process_memory.h"

// Any C library header defines __GLIBC__ under the GNU C library.
#include <cstdlib>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace orvo {

void KeepFreedMemoryForReuse() {
#if defined(__GLIBC__)
    // Blocks up to 256 MiB come from the heap rather than from a mapping of their own, so
    // that freeing one leaves it for the next; the heap is given back only beyond 1 GiB of
    // free space at its top, and grows 64 MiB at a time.
    mallopt(M_MMAP_THRESHOLD, 256 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 1024 * 1024 * 1024);
    mallopt(M_TOP_PAD, 64 * 1024 * 1024);
#endif
}

} // namespace orvo
