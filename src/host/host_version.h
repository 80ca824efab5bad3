// The version of the book format this build writes; storage migrations raise it.
#pragma once

namespace orvo::host {
inline constexpr int kProgramVersionMajor = 0;
} // namespace orvo::host
