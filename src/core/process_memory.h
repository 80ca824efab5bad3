// How this program's process keeps the memory it frees. A list of a hundred thousand
// debts or entries is built, shown and freed again and again. By default the C library
// hands large blocks straight back to the system and maps fresh ones the next time, and
// every page of them then faults and is cleared anew: for the list of every customer's
// open debts that was five times the page faults. Called once at the start of each program
// (the desktop, the command line, and the benchmarks, so that they measure what the user
// gets), it keeps freed memory in the process for the next list. The process then holds
// on to the most it ever needed.
#pragma once

namespace orvo {

void KeepFreedMemoryForReuse();

} // namespace orvo
