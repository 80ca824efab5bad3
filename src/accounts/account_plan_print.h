// The rows of the printed chart of accounts (ActRepAccPlan): every class, account and
// subaccount by number, read through the business object's account list with the
// filter the navigator hands over ("All": the classes and grouping rows too). Each row
// has Account, Name, Type and GroupFlag; a row whose GroupFlag is non-zero is a class,
// which the page prints in bold and without its type.
#pragma once

#include "core/recordset.h"
#include "frame/business_object.h"

#include <QString>

namespace orvo {

// Null with `error` set when the business object refuses or there is none.
RecordsetPtr AccountPlanPrintRows(const BusinessObjectPtr& bo, const QString& filter,
                                  QString* error);

// The cells a printed row shows: the number, the name and, on an account, its type.
QStringList AccountPlanPrintCells(const RecordsetPtr& rows);
// Whether the current row is a class (printed bold, without a type).
bool AccountPlanPrintIsClass(const RecordsetPtr& rows);

} // namespace orvo
