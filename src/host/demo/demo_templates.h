// The demo templates: two template groups, "Pagrindiniai šablonai" (sales and purchases
// with VAT, payments of customers and to suppliers, opening balances at the bank) and
// "Kasos operacijos" (cash to and from the bank), posting to the demo chart and naming
// the addressee kinds the chart demands. Stored through the templates' own kind, so
// their tree codes and keys are what the editor would have made.
#pragma once

#include "core/results.h"

namespace orvo::host {

class Database;

struct DemoTemplateIds {
    qint64 MainGroup = 0;
    qint64 CashGroup = 0;
    // "Prekių pardavimas su PVM", the main template of the demo's plain operations.
    qint64 Sale = 0;
};

// Fills the templates inside the caller's transaction; the ids of what the groups use.
ResultRecord CreateDemoTemplates(Database& db, DemoTemplateIds* ids);

} // namespace orvo::host
