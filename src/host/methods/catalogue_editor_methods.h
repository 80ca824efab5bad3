// The business-object methods the catalogue editors read and keep beside a record:
//   DO0000900_GetUserRights('OIDR')    every right a user may be given, with the user's
//                                      five flags (all off for a new user): the rights
//                                      of the component's list in its order, the
//                                      operations of each operation group
//                                      (CBROperRights + the group's number), the host's
//                                      catalogues, then any other key the user holds.
//                                      Rows RightKey, ParentKey, Title, Kind, ReadFlag,
//                                      DeleteFlag, EditFlag, CreateFlag, FifthFlag
//   DO0002200_GetDayRates('USD')       the currency's daily rates, the latest first:
//                                      DateD, Rate, CurrencyRate
//   DO0002200_DeleteDayRate('USD','yyyy.mm.dd')  removes the rate of that day
#pragma once

#include "core/results.h"

#include <QList>
#include <QString>

namespace orvo::host {

class MethodRegistry;

// The rights of the host's own catalogues, which the catalogue navigators ask: key and
// title, in the order the user rights list shows them.
struct CatalogueRightKey {
    QString Key;
    QString Title;
};
QList<CatalogueRightKey> CatalogueRightKeys();

ResultRecord RegisterCatalogueEditorMethods(MethodRegistry& methods);

} // namespace orvo::host
