// The rules of operation templates that need no window, so that the editors and the
// printed list only show what these give:
//   - the factor box: what txtFactor holds once left, and the factor it stands for;
//   - how an entry's account shows in the editor's list, a deleted one included;
//   - the rows of the printed list "Šablonai", read through the business object.
#pragma once

#include "core/recordset.h"
#include "frame/business_object.h"

#include <QString>

namespace orvo {

// The text txtFactor keeps when the user leaves it: an empty text, text that is no
// number, and a number below 0.01 (a negative one included) become "1"; anything else
// stays as typed.
QString TemplateFactorText(const QString& typed);
// The factor that text stands for, after the rule above.
double TemplateFactorValue(const QString& typed);

// What the editor shows for an account of a template entry. `accounts` is the
// AccountList recordset (Account, Name, Likutis). A known account shows its number and
// name; "0" shows "Pradiniai likučiai"; an account the chart no longer has keeps its
// number (so the entry can still be edited) with Mark "*" and Name "Nežinoma sąskaita".
struct TemplateAccountShown {
    QString Account;
    QString Mark;
    QString Name;
};
TemplateAccountShown ShowTemplateAccount(const RecordsetPtr& accounts, const QString& account);

// The fields of the printed list: Pav (the name), Debit, Kredit, Factor, and GroupFlag
// (non-zero on a group's row, which the page prints in bold).
FieldDefs TemplatePrintFields();
// The rows of the printed list "Šablonai". `mode` "ALL" walks every group from the top;
// a group's ID (or OIDR) walks that group. A group's records are read with its ID and
// come groups first, then by name; each group's row is followed by what it holds, and a
// template gives one row per entry, its name on the first. Null with `error` set when
// the business object refuses.
RecordsetPtr TemplatePrintRows(const BusinessObjectPtr& bo, const QString& mode, QString* error);

} // namespace orvo
