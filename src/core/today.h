// "Today" for the whole system comes from here, so that tests and scripts can fix it
// with the environment variable ORVO_TODAY=YYYY-MM-DD (or SetToday in-process).
#pragma once

#include <QDate>

namespace orvo {

// The current date: the fixed one if set, else ORVO_TODAY if valid, else the clock.
QDate Today();
// Fixes "today" for this process; an invalid date returns to ORVO_TODAY or the clock.
void SetToday(const QDate& date);

} // namespace orvo
