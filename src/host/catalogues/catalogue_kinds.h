// The shared catalogues as stored kinds: firms (O0000100), natural persons (O0001402),
// employees (O0001401), banks (O0000300), bank accounts (O0000500) and currencies
// (O0002200). Each is read and stored by the generic object store through its
// DO<code>_... methods; the currency's daily rates have methods of their own.
#pragma once

#include "host/objects/object_kind_registry.h"

namespace orvo::host {

namespace kinds {
inline const QString Firm = QStringLiteral("O0000100");
inline const QString Bank = QStringLiteral("O0000300");
inline const QString BankAccount = QStringLiteral("O0000500");
inline const QString Employee = QStringLiteral("O0001401");
inline const QString Person = QStringLiteral("O0001402");
inline const QString Currency = QStringLiteral("O0002200");
} // namespace kinds

// Also the users of the book (O0000900, user_kind.h); every kind saves under its lock.
void AddCatalogueKinds(ObjectKindRegistry& registry);

} // namespace orvo::host
