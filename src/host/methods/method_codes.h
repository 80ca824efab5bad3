// Result codes that the business object's dispatcher gives when it refuses a call
// before a method runs, or when a method fails in a way it did not report itself.
// They are distinct from the component's own refusals (777, 999), so a caller and a
// log can tell a wrong call from a check that said no.
#pragma once

#include <QtGlobal>

namespace orvo::host::bo_codes {

inline constexpr qint32 UnknownMethod = 1001;
inline constexpr qint32 BadParameterText = 1002;
inline constexpr qint32 WrongParameterCount = 1003;
inline constexpr qint32 WrongParameterKind = 1004;
inline constexpr qint32 MethodFailed = 1005;
// A registration the registry refused (a programming error, found at start-up).
inline constexpr qint32 BadRegistration = 1006;

} // namespace orvo::host::bo_codes
