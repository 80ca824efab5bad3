// The demo operation groups: a general group for each side of the work ("Finansinės
// operacijos", "Pinigų apskaita") holding one group per document kind, each with the
// numbering a Lithuanian firm would set — a yearly counter per group for plain
// operations ("BO-0001" with the date in front), per document kind for payment orders
// and receipts, series for cash orders and advance reports — and the demo templates
// offered to their operations.
#pragma once

#include "core/results.h"
#include "host/demo/demo_templates.h"

#include <QDate>

namespace orvo::host {

class Database;

// Fills the groups inside the caller's transaction; counters count from 1 January of
// the year of `today`.
ResultRecord CreateDemoGroups(Database& db, const DemoTemplateIds& templates, const QDate& today);

} // namespace orvo::host
