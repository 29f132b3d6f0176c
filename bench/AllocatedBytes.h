#pragma once

#include <malloc.h>

namespace netrove {

/// Bytes that this process has allocated.
inline double AllocatedBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return double(heap.uordblks) + double(heap.hblkhd);
}

} // namespace netrove
