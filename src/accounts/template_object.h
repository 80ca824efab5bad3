// UIO0201600 is the data object of operation templates: one template or template group
// (object code O0201600, OID "O0201600" + ID) with its entries (BRTemplateAcc) and the
// addressees they demand (BRTemplateAddr) as two nested recordsets of its one row.
// Reading, saving and deleting go through the generic core to the business object's
// DO0201600_ methods.
//
// Properties it serves itself:
//   Parent             the data object of the parent group (ParentID), read; empty at the
//                      top level or when the group is gone.
//   EnabledAddressee   FOID, Name of the addressee kinds allowed on the account given
//                      (DO0201600_GetEnabledAddressee); a failure shows "Klaida!",
//                      "GetEnabledAddressee:" and the business object's text.
//   AccountList        Account, Name, Likutis of every account that can be posted to,
//                      the opening balances "0" "Pradiniai likučiai" first (Likutis true
//                      on it alone); read once and kept while the object lives.
//   TemplateRows       the entries as the editor's list shows them: GUID, AccountD,
//                      AccountDMark, AccountDName, AccountC, AccountCMark, AccountCName,
//                      Factor; an account the chart no longer has shows Mark "*" and
//                      "Nežinoma sąskaita" (see ShowTemplateAccount).
//   GetObjectForm      the editor frmBRTemplate holding this object; for a new record the
//                      parameters may name the parent group ("O0201600<ID>"), which
//                      becomes its ParentID.
// Any other name goes to the business object as "Get" + name with the caller's
// parameters, or the record's reference when there are none: TemplateAccAndAddr and
// TemplateList so.
//
// Methods: DeleteTemplateSet([reference]) removes the record (or the one named) with
// everything it holds; any other name runs DO0201600_ + name. A refusal shows its text
// as a warning and is returned.
//
// Save: a new record whose NewMode holds "|" ("O0201600|12") is a copy of the stored set
// 12: AddBRTemplateSet copies it into the group of ParentID first, this object becomes
// the copy, and a name or comment typed on the new record is written over the copy's.
#pragma once

#include "frame/orvo_object_uio_base.h"

namespace orvo {

class UIO0201600 : public OrvoObjectUIOBase {
public:
    UIO0201600();

    static const QString kCode;
    // The name of the opening balances in the account list and the combos.
    static const QString kOpeningBalances;

    ValueResult Properties(const QString& name, const QString& parameters) override;
    ValueResult Methods(const QString& name, const ValueArray& parameters) override;
    ResultRecord Save(const Value& rs2 = Value(), const Value& rs3 = Value()) override;

    // The stored record O0201600 + id, read; null when it is gone.
    OrvoObjectUIOPtr TemplateObject(qint64 id) const;

private:
    ValueResult parent();
    ValueResult enabledAddressee(const QString& parameters);
    ValueResult accountList();
    ValueResult templateRows();
    ValueResult objectForm(const QString& parameters);
    ResultRecord saveAsCopy(const QString& newMode);

    RecordsetPtr accounts_;
};

} // namespace orvo
