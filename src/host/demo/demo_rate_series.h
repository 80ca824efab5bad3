// DemoRateSeries makes the daily exchange rates of the demonstration book: a quoted rate
// (foreign units per one euro) for every calendar day, drifting smoothly inside a band
// that looks like the currency's recent history. The series is a pseudo-random walk with
// momentum and a pull toward the middle of the band, driven by a hash of the currency
// code and the day, and always walked from the same starting day: the rate of a given
// day is the same whenever and wherever the book is made, so demonstrations and tests
// can be repeated.
#pragma once

#include <QDate>
#include <QString>
#include <QVector>

namespace orvo::host {

class DemoRateSeries {
public:
    // `low` and `high` bound the quoted rate (0 < low < high).
    DemoRateSeries(const QString& currencyCode, double low, double high);

    // One quoted rate per day from `first` to `last`, both included, each rounded to four
    // decimals as banks quote them; empty when the range is empty or a date is invalid.
    QVector<double> Quotes(const QDate& first, const QDate& last) const;

    // The day every walk starts from, so that a day's rate does not depend on the range.
    static QDate WalkStart();

private:
    quint64 seed_ = 0;
    double low_ = 0;
    double high_ = 0;
};

} // namespace orvo::host
