// The business-object methods an entry's card asks while it is checked and shown:
//   GetAddresseeList(None)        the kinds an entry may name as addressee (FOID, Name),
//                                 in the order the menus offer them
//   DO0001629_GetVATtariffs(None) the VAT rates in force (Value, percent), the standard
//                                 rate first
//   DO0201500_CheckBRPointerClient('<entry reference>','<account>','<addressee>')
//                                 one row (ID) when the referenced entry names the
//                                 addressee on the side where the account stands, none
//                                 otherwise: a payment may only settle its own client's
//                                 debt
// and AddresseeKindName, the name of a kind as every list shows it.
#pragma once

#include "core/results.h"

#include <QString>

namespace orvo::host {

class MethodRegistry;

// The name of an addressee kind as lists show it ("Įmonė" for O0000100); the code
// itself for a kind without a name here.
QString AddresseeKindName(const QString& foid);

ResultRecord RegisterAddresseeMethods(MethodRegistry& methods);

} // namespace orvo::host
