// The demo book's open debts: sales to customers on 2410 and purchases from suppliers
// on 4430, in euros and in dollars, pounds and zlotys booked at the rates of their own
// days, some of them paid in part by bank receipts and payments that refer to them. A
// firm that both buys and sells ("UAB Įrankių centras") owes and is owed, so the debts
// cover has something to set off, and the currency debts show a rate influence at
// today's rates. Stored as plain operations (no group) through the operations' own kind,
// with the addressees the chart demands.
#pragma once

#include "core/results.h"

#include <QDate>

namespace orvo::host {

class Database;

// Books the debts inside the caller's transaction; the days are counted back from
// `today`, whose rates the demo book holds.
ResultRecord CreateDemoDebts(Database& db, const QDate& today);

} // namespace orvo::host
