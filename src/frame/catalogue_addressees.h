// Catalogue (see catalogue_rights_forms.h): the addressees of entries. An addressee is
// never a column of an entry but a row of its BRProperties (BRGUID, Sign, FOIDR,
// ShowString); Sign 1 is the debit side and any other value the credit side.
#pragma once

#include "core/recordset.h"
#include "frame/check_list_control.h"
#include "frame/orvo_object_uio.h"

#include <QString>

namespace orvo::Catalogue {

// The picker's title: for firms (O0000100) "Pasirinkite įmonę, paieškos tekstą
// įveskite per [Ctrl + F]", for any other kind "Pažymėkite norimą adresatą".
QString AddresseeDialogTitle(const QString& code);

// The host's object picker for the kind Left(code, 8): "OIDR_text", or empty when
// nothing is picked. The answer is cut by AddresseeTail.
QString SelectAddressee(const QString& code, const QString& title, const QString& field,
                        const QString& filter);
// The tail rule of the picker's answer: an answer of fewer than nine characters is
// kept whole; otherwise, when the reference part (before the first "_") holds an "O"
// after its first character, the characters before the last such "O" are dropped, so
// that a prefixed answer ("GRO0000100123_UAB Ąžuolas") becomes a plain one.
QString AddresseeTail(const QString& answer);

// Fills the list with a checkable row per row of `rows` (FOID the key, Name the text),
// and ticks every row whose key is found inside `selected`.
void FillAddresseeChecks(CheckListControl& list, const RecordsetPtr& rows, const QString& selected);

// FOIDR of the first addressee of the current entry whose FOIDR begins with `code`, or
// empty. The entry's BRProperties keeps its filter and current row.
QString FindProperty(const OrvoObjectUIOPtr& uio, const QString& code);

// The ShowString texts of one side of the current entry's addressees, joined by "; ".
QString BuildPropertyText(const OrvoObjectUIOPtr& uio, qint16 sign);

} // namespace orvo::Catalogue
