// The process keeps what it frees for the next large list: a block as large as a list of
// a hundred thousand rows, freed and asked for again, comes back without the system having
// to fault and clear its pages anew.
#include "core/process_memory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/resource.h>

using namespace orvo;

namespace {

long MinorFaults() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

// Allocates `size` bytes, writes one byte of every page and frees them; the page faults
// that took.
long FaultsOfABlock(std::size_t size) {
    const long before = MinorFaults();
    volatile char* block = static_cast<volatile char*>(std::malloc(size));
    if (!block)
        return -1;
    for (std::size_t i = 0; i < size; i += 4096)
        block[i] = 1;
    std::free(const_cast<char*>(block));
    return MinorFaults() - before;
}

} // namespace

TEST(ProcessMemory, AFreedLargeBlockIsReusedWithoutFaultingAgain) {
    KeepFreedMemoryForReuse();
    constexpr std::size_t kListSized = std::size_t(64) << 20;
    const long first = FaultsOfABlock(kListSized);
    const long again = FaultsOfABlock(kListSized);
    ASSERT_GE(first, 0);
    // 64 MiB is 16,384 pages; the first pass faults most of them, the second almost none.
    EXPECT_GT(first, 8000);
    EXPECT_LT(again, first / 10) << "first " << first << ", again " << again;
}
