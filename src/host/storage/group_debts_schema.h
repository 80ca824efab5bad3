// The migration "Grupių skolos ir dokumentų tipai": what a group keeps of its debts and
// the small catalogues that contract documents' groups are set up with.
//
//   BROperGroupDebts  the open debts of the entries of one group's operations as they
//                     stood at DateAt, one row per debt entry (BRID), written whole by
//                     DO0201400_CreateFullSum; a new computation replaces the group's
//                     earlier rows. Rests are exact hundredths: RestA in the base
//                     currency, RestCurr in the debt's own currency.
//   DocumentTypes     the kinds of documents (object O0001602): a Code key and its Name.
//   TemplateTypes     the kinds of templates a document is posted by (object O0001612):
//                     DocumentTypeCodes names, ";"-joined, the document types it serves.
// The two catalogues start with a few rows so that a new book can set up a contract
// document group at once.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kGroupDebtsMigrationVersion = 7;

Migration GroupDebtsMigration();

} // namespace orvo::host
