#include "host/demo/demo_rate_series.h"

#include <QtMath>
#include <algorithm>

namespace orvo::host {

namespace {

// SplitMix64: a well mixed 64-bit hash, enough to turn (currency, day) into noise.
quint64 mix(quint64 x) {
    x += 0x9E3779B97F4A7C15ULL;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
    return x ^ (x >> 31);
}

// Uniform noise in [-1, 1) for one day of one currency.
double noise(quint64 seed, qint64 julianDay) {
    const quint64 bits = mix(seed ^ mix(static_cast<quint64>(julianDay)));
    return static_cast<double>(bits >> 11) / static_cast<double>(1ULL << 52) - 1.0;
}

// How the walk moves, in units of half the band: the momentum keeps a trend for some
// weeks, the pull keeps the rate from resting at an edge.
constexpr double kMomentum = 0.9;
constexpr double kStep = 0.06;
constexpr double kPull = 0.005;

} // namespace

DemoRateSeries::DemoRateSeries(const QString& currencyCode, double low, double high)
    : low_(low), high_(high) {
    for (const QChar c : currencyCode)
        seed_ = mix(seed_ ^ c.unicode());
}

QDate DemoRateSeries::WalkStart() {
    return QDate(2000, 1, 1);
}

QVector<double> DemoRateSeries::Quotes(const QDate& first, const QDate& last) const {
    QVector<double> quotes;
    if (!first.isValid() || !last.isValid() || first > last)
        return quotes;
    quotes.reserve(static_cast<int>(first.daysTo(last) + 1));

    const double middle = (low_ + high_) / 2;
    const double half = (high_ - low_) / 2;
    // Position in the band (-1 low edge, 1 high edge) and its velocity.
    double position = 0;
    double velocity = 0;
    const qint64 start = std::min(WalkStart(), first).toJulianDay();
    for (qint64 day = start; day <= last.toJulianDay(); ++day) {
        velocity = kMomentum * velocity + (1 - kMomentum) * noise(seed_, day);
        position = std::clamp(position + kStep * velocity - kPull * position, -1.0, 1.0);
        if (day < first.toJulianDay())
            continue;
        const double quoted = std::clamp(middle + half * position, low_, high_);
        quotes.append(qRound64(quoted * 10000) / 10000.0);
    }
    return quotes;
}

} // namespace orvo::host
