// What the object store does for a catalogue kind so that its editors can rely on it:
// every save is guarded by the optimistic lock (LockGUID), refuses a record that breaks
// the rules of catalogue_editor_rules.h or repeats another record's code (a firm's or
// bank's code, a person's or employee's personal code, a bank account's number, a
// currency's code, a user's login), and keeps one own firm and one main account of an
// owner by clearing the mark on the others. A deletion is refused while entries of
// operations still name the record as their addressee, or while it owns bank accounts.
#pragma once

#include "host/objects/object_kind.h"

namespace orvo::host {

// Adds the lock column and the hooks to a catalogue kind (its code says which rules).
void ApplyCatalogueEditorRules(ObjectKind& kind);

} // namespace orvo::host
