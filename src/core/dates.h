// Dates as the system computes, sends and prints them: the month bounds that the
// journals and the closing work with, month arithmetic that keeps to the month's last
// day, the yyyy.mm.dd text in which dates travel to the business object, its fixed
// bounds, and the long Lithuanian form with the month in the genitive used on printed
// documents ("2024 m. kovo 15 d.").
#pragma once

#include <QDate>
#include <QString>

namespace orvo {

// The earliest date in use, the latest, and the date that means "no lock", as they are
// sent to the business object.
inline constexpr char EarliestDateText[] = "1990.01.01";
inline constexpr char LatestDateText[] = "9999.12.31";
inline constexpr char NoLockDateText[] = "1900.01.01";

QDate EarliestDate();
QDate LatestDate();
QDate NoLockDate();

// The first day of the date's month; an invalid date stays invalid.
QDate FirstOfMonth(const QDate& date);
// The last day of the date's month (2024-02-10 gives 2024-02-29); invalid stays invalid.
QDate LastOfMonth(const QDate& date);

// `months` months on (or back, when negative), the day kept where the target month has
// it, else that month's last day: 2023-01-31 + 1 is 2023-02-28, 2024-01-31 + 1 is
// 2024-02-29, 2024-03-31 - 1 is 2024-02-29.
QDate AddMonths(const QDate& date, int months);

// The date as the business object takes it: "2024.03.01". An invalid date gives "".
QString DateParam(const QDate& date);
// A yyyy.mm.dd text read back (blanks around it ignored); anything else, an invalid date.
QDate DateFromParam(const QString& text);

// The genitive name of month 1..12 ("kovo" for 3); any other number gives "".
QString MonthGenitive(int month);

// A part of the date in words. `part` "m": the month's genitive name; "d": the day in
// digits; "yyyy": the year in digits; anything else the long form: year, " m. ", month's
// name, " ", day, " d." ("2024 m. kovo 15 d."). An invalid date gives "".
QString FormatLongDate(const QString& part, const QDate& date);

} // namespace orvo
