// Catalogue (see catalogue_rights_forms.h): helpers around an operation: which debts
// query fits a reference, the operations that refer to this one, and whether a date
// fits the references.
#pragma once

#include "core/recordset.h"
#include "frame/list_control.h"
#include "frame/orvo_object_uio.h"

#include <QDate>
#include <QPair>
#include <QString>

namespace orvo::Catalogue {

// The debts query for an addressee reference and a side: a reference shorter than
// eight characters gives "Debts3"; then Sign 1 "DebtsByDebit", -1 "DebtsByCredit", 0
// "Debts2" for a reference shorter than nine characters, else "Debts1". Any other sign
// gives the empty text.
QString DebtsQueryName(const QString& foidr, int sign);

// Fills the list with a line per row of `rs`: Preview when it is not Null, else
// BROperDate, a blank, Number, a blank, Comment. A line's key is RelatedKey of the
// row's BROperOIDR and BROperFOIDR.
void FillRelatedList(ListControl& list, const RecordsetPtr& rs);
// "BROperOIDR;BROperFOIDR", and back.
QString RelatedKey(const QString& oidr, const QString& foidr);
QPair<QString, QString> SplitRelatedKey(const QString& key);

// The rows of other operations that refer to this one's entries:
// Properties("RelatedBR", "'" + FOIDR + "','" + IDs + "'"), where IDs are the stored
// entries' ID numbers joined by ",". Null on failure.
RecordsetPtr ReadRelated(const OrvoObjectUIOPtr& uio);
// The IDs of the operation's stored entries joined by ",".
QString EntryIdList(const OrvoObjectUIOPtr& uio);

// Whether `date` fits the operation's references: no entry may refer (a BRProperties
// row whose FOIDR is of kind O0201500) to an operation dated after it, and no row of
// `related` may be dated after it. On failure "Data neatitinka esančių nuorodų
// datoms!" shows as information and false comes back.
bool CheckDatesAgainstReferences(const OrvoObjectUIOPtr& uio, const QDate& date,
                                 const RecordsetPtr& related);

} // namespace orvo::Catalogue
