// What ShowBR needs of the entry card frmBROperRecord: the settings it hands over before
// showing it, in the order the card expects them (after OrvoObjectUIO: the entries, the
// entry's GUID, the restricted flag, the currencies-editable flag, the tab number, the
// allowed kinds of addressee), and the flag read after it closes. The desktop's card
// implements it over widgets.
#pragma once

#include "core/recordset.h"
#include "frame/orvo_form.h"

namespace orvo {

class EntryCardForm : public OrvoForm {
public:
    QString FormName() const override { return QStringLiteral("frmBROperRecord"); }

    virtual void SetEntries(const RecordsetPtr& br) = 0;
    virtual void SetGUID(const QString& guid) = 0;
    // Restricted: every field that holds a value is locked, addressees stay usable.
    virtual void SetRestricted(bool restricted) = 0;
    // Under the restricted flag, whether the currency fields stay editable.
    virtual void SetCurrenciesEditable(bool editable) = 0;
    virtual void SetTabNumber(qint16 tab) = 0;
    // The object codes of the addressee kinds the card offers, concatenated.
    virtual void SetAllowedKinds(const QString& kinds) = 0;

    // After closing: 0 nothing written, 1 written, 2 and 3 as the card tells.
    virtual qint16 ResultFlag() const = 0;
};

} // namespace orvo
