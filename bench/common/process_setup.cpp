// Every benchmark runs with the process settings of the program itself, so that its figures
// are what the user gets.
#include "core/process_memory.h"

namespace {

const bool kConfigured = [] {
    orvo::KeepFreedMemoryForReuse();
    return true;
}();

} // namespace
