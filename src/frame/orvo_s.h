// The component's one module-wide variable: the services object the host handed over
// through a navigator's OrvoS, and the message title read from the session when it was
// stored. Forms and the Catalogue routines reach the host only through it.
//
// SetOrvoS keeps the first services object it is given, as the host's repeated OrvoS
// calls (one per navigator) all hand over the same one. ReplaceOrvoS sets it whatever
// was there, for a face that opens another book, and for tests; ClearOrvoS forgets it.
#pragma once

#include <QString>
#include <memory>

namespace orvo {

class OrvoServices;
using OrvoServicesPtr = std::shared_ptr<OrvoServices>;

// The stored services object; null before the first OrvoS.
OrvoServicesPtr OrvoS();
// Stores `services` and reads MessageTitle, unless a services object is already stored.
void SetOrvoS(const OrvoServicesPtr& services);
// Stores `services` and reads MessageTitle, replacing what was stored.
void ReplaceOrvoS(const OrvoServicesPtr& services);
void ClearOrvoS();

// The title of every message box: the session's Title as read when the services were
// stored, or "Orvo Apskaita" when there was none.
QString MessageTitle();

} // namespace orvo
