// Catalogue: the component's shared routines, as free functions of the namespace
// orvo::Catalogue, one group per file. They hold no state: the module-wide services of
// OrvoS() are their one dependency, and without a service they answer as on an empty
// answer (no right, no form, nothing).
//
// This group: the rights check, and the opening of the right form for a kind or for a
// reference to an operation.
#pragma once

#include "core/results.h"
#include "frame/orvo_form.h"
#include "frame/orvo_object_uio.h"

#include <QString>

namespace orvo::Catalogue {

// The five rights of the current user under `key`. The host is asked in its own
// order (read, edit, delete, create, fifth) with no user; the record keeps them in its
// order (read, delete, edit, create, fifth).
RightsRecord RightsFor(const QString& key);

// The window that edits a kind of operation: O0201501, O0201502 frmTransfer; O0201503,
// O0201504 frmCashPayment; O0201505 frmAdvanceReport; O0201506 frmAccountsClosing; any
// other frmBROper.
QString FormNameForKind(const QString& code);
// A new form for the kind from the Forms service, and nothing more; null when the
// service has no such form.
OrvoFormPtr NewFormForKind(const QString& code);

// The window that edits the operation `oidr`, bound to its data object, or null.
// `uio` may be null, and then is fetched through the objects service; it is passed by
// reference, so the caller sees the object fetched, or null when the operation is gone.
// A record with no OIDR or FOIDR is gone: "Operacija panaikinta !" shows as an error.
// Without the read right of its group nothing happens. A document kind not in the
// table of editors is shown by the host (ShowObject of FOIDR) and no form comes back.
OrvoFormPtr OpenOperationForm(const QString& oidr, OrvoObjectUIOPtr& uio);

// The data object of a reference, read, through the objects service; null for an empty
// reference or one that cannot be read.
OrvoObjectUIOPtr GetUIOByOIDR(const QString& oidr);

} // namespace orvo::Catalogue
