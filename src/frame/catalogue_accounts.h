// Catalogue (see catalogue_rights_forms.h): the chart of accounts as the editors use
// it, read through the operation and group objects, and the account combos.
//
// A value sent as a query's parameter is put in single quotes here, as the business
// object's parameter texts are written ("'2410'").
#pragma once

#include "core/dictionary.h"
#include "frame/combo_control.h"
#include "frame/orvo_object_uio.h"

#include <QString>

namespace orvo::Catalogue {

// Account number to name, from Properties("AccountList", "") of the operation object;
// never null: a failure gives a new empty map.
DictionaryPtr AccountList(const OrvoObjectUIOPtr& caller);

// AccOIDR of the firm's main bank account (the row of MyFirmAccounts with
// MainAccountFlag <> 0), or empty.
QString MyMainAccount(const OrvoObjectUIOPtr& caller);

// "account name" for a known account; empty for an empty account. An account the
// chart does not have shows a warning of the account, a line break and
// "Klaidinga balansinės sąskaitos reikšmė!", and gives the empty text.
QString AccountName(const OrvoObjectUIOPtr& caller, const QString& account);

// The accounts of a role code in the group object's PresetAccounts, account to name,
// without duplicates; never null.
DictionaryPtr PresetAccountsByCode(const OrvoObjectUIOPtr& caller, const QString& code);
// Every role code of PresetAccounts to its first account; never null.
DictionaryPtr PresetAccountCodes(const OrvoObjectUIOPtr& caller);

// Whether the combo names an account of the map (its first word; "0" is refused when
// `denyZero`). A known account turns the combo's text into "account name". Otherwise,
// unless `quiet`, a warning: "Nenurodyta  balansinė sąskaita !" for an empty combo,
// "Klaidinga  balansinės sąskaitos reikšmė !" for any other text.
bool CheckAccountInList(ComboControl& combo, const DictionaryPtr& map, bool quiet, bool denyZero);

// Fills the combo with "account name" for each account of the map and chooses
// `selected` (an account, or a text that begins with one) when it is there. A null or
// empty map is replaced by a new empty one, so that the caller's later lookups work.
void FillAccountCombo(ComboControl& combo, DictionaryPtr& map, const QString& selected);

} // namespace orvo::Catalogue
