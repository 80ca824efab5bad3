// The stored kind of financial operations (O0201500, and the document kinds O0201501 to
// O0201506 that share its tables): the record's shape is the one the component works
// with (model/operation_record.h), and this file adds only what storage knows: which
// table holds each recordset, that the operation and its entries draw their numbers
// from the record sequence, that RequiredAddr is never stored, that LockGUID is the
// optimistic lock. Its save hooks refuse what the book must not hold (a sum that is not
// positive, a currency side without code or rate or with a sum that does not match, an
// account outside the chart, a missing demanded addressee, a date in a locked period),
// stamp the protocol, cut addressee texts to their size and write the change log, all
// in the save's one transaction.
#pragma once

#include "host/objects/object_kind.h"
#include "host/objects/operation_posting_rules.h"

namespace orvo::host {

namespace kinds {
inline const QString Operation = QStringLiteral("O0201500");
} // namespace kinds

// The kind, with its hooks bound to `rules`.
ObjectKind OperationKind(const OperationPostingRules& rules);

// The document kinds whose operations share the tables.
QStringList OperationKinds();

// The text an operation shows in lists: its date (yyyy.mm.dd), number and comment,
// each left out when empty.
QString OperationPreview(const Value& date, const QString& number, const QString& comment);

} // namespace orvo::host
