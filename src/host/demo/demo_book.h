// CreateDemoBook fills a freshly created book with a small, realistic Lithuanian data
// set, so that the program can be shown and tried without typing catalogues first: the
// euro as the base currency and the dollar, pound and zloty with two years of daily
// rates, the firm that keeps the books with its customers, suppliers and a branch,
// natural persons, employees, Lithuanian banks, bank accounts, two users (an
// administrator and an accountant with narrower rights), the chart of accounts, groups
// and templates of operations, and open debts of customers and suppliers in euro and in
// foreign currencies, some partly paid, so that every settling window shows something.
//
// Everything is written in one transaction. A book that already holds catalogue data is
// refused with a Lithuanian text and left untouched, so running it twice never doubles
// anything.
#pragma once

#include "core/results.h"

#include <QDate>

namespace orvo::host {

class Database;

// The last day of the rates is `today`; the first is the same day two years earlier.
ResultRecord CreateDemoBook(Database& db, const QDate& today);

// The text of the refusal when the book is not empty.
QString DemoBookNotEmptyText();

} // namespace orvo::host
