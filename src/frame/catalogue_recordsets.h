// Catalogue (see catalogue_rights_forms.h): helpers over recordsets.
#pragma once

#include "core/recordset.h"

#include <QString>

namespace orvo::Catalogue {

// Sets the filter and tells whether any row passes. Null, an empty recordset, a filter
// that cannot be read, or one that matches nothing give false and leave the recordset
// unfiltered; otherwise the rows stay filtered and true comes back.
bool TryFilter(const RecordsetPtr& rs, const QString& filterText);

// Deletes every visible row whose ID is empty (Null or an empty text); a row that
// refuses deletion is passed over.
void DeleteUnsavedRows(const RecordsetPtr& rs);

// A disconnected copy of the visible rows with the same fields, nested recordsets
// copied in depth. A decimal field of type 131 becomes type 14 with a precision of 9 and
// the source's scale; every other field keeps its type, defined size and attributes.
// The copy's rows count as unchanged, so that cancelling on it returns to the copied
// state; the copy stands on its first row, and the source keeps its current row.
RecordsetPtr CloneRecordset(const RecordsetPtr& rs);

// The deep copy into an existing structure: each visible source row adds a target row;
// a nested field recurses into the target row's own nested recordset; every other
// field that is not Null, whose name is not ID (in any case) and which the target has,
// is copied. A target left with rows stands on its first.
void ForEachFieldCopy(const RecordsetPtr& source, const RecordsetPtr& target);

} // namespace orvo::Catalogue
