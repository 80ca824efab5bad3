// UIO0200400 is the data object of the chart of accounts: one class, account or
// subaccount (object code O0200401, OID "O0200401" + ID). Reading, saving and deleting
// go through the generic core to the business object's DO0200401_ methods; saving
// answers with the chart's result numbers (1 parent gone, 32 record gone, 547 role gone,
// 3604 number taken), which the editor turns into its messages.
//
// Properties serves three names itself: Parent (the data object of the parent record),
// Class (the data object of the class above, from the parent's OwnCode) and NewAccount
// (the number and name of the matching account of a new chart, forgetting a NewID whose
// record is gone). Any other name goes to the business object as "DO0200401_Get" + name
// with the record's reference, so BRAProperties and BRASettings give the roles. An
// account missing from the chart gives an empty result and no message.
//
// Methods: MoveAccountDown(ID) runs DO0200401_MoveAccountDown with the ID in quotes,
// Convert and any other name DO0200401_ + name with empty parameters. A refusal shows
// its text as a warning and is returned.
#pragma once

#include "frame/orvo_object_uio_base.h"

namespace orvo {

class UIO0200400 : public OrvoObjectUIOBase {
public:
    UIO0200400();

    ValueResult Properties(const QString& name, const QString& parameters) override;
    ValueResult Methods(const QString& name, const ValueArray& parameters) override;

    // The data object of the stored record O0200401 + id, read; null when it is gone.
    OrvoObjectUIOPtr AccountObject(qint64 id) const;

private:
    ValueResult parent();
    ValueResult classAbove();
    ValueResult newAccount();
};

} // namespace orvo
