// CatalogueObject is the data object of a shared catalogue (a firm, a person, an
// employee, a bank, a bank account, a currency): it reads and stores through the generic
// DO<code>_... methods. The currency object also words sums ("SumByWords") and keeps the
// day's rate ("SaveDayRate"), and "CurrencyRates"(Code [, Date]) opens the window of
// that currency with its daily rates (frmCurrency); its queries (CurrencyList, CurrencyByCode) go
// to the business object as "Get" + name. Properties("GetObjectForm", "GroupID;Clicked")
// gives the editor of the kind (frmFirm, frmEmployee, frmBankAccount, frmUser ...) from
// the Forms service, bound to this object, with the clicked parameters ("@|@" read back
// as ";"), so that the host can show a catalogue record modally; a kind without an
// editor, or a face without that window, is refused with Code 777 and a warning.
#pragma once

#include "frame/orvo_object_uio_base.h"

namespace orvo::host {

class CatalogueObject : public OrvoObjectUIOBase {
public:
    CatalogueObject(const QString& code, const QString& title);
    ValueResult Methods(const QString& name, const ValueArray& parameters) override;

protected:
    std::optional<ValueResult> OwnProperty(const QString& name, const QString& parameters) override;

private:
    ValueResult showRates(const QString& code);
    ValueResult objectForm(const QString& parameters);
};

} // namespace orvo::host
