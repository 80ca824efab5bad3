#include "core/dates.h"

namespace orvo {

namespace {
const QString& paramFormat() {
    static const QString format = QStringLiteral("yyyy.MM.dd");
    return format;
}
} // namespace

QDate EarliestDate() {
    return QDate(1990, 1, 1);
}

QDate LatestDate() {
    return QDate(9999, 12, 31);
}

QDate NoLockDate() {
    return QDate(1900, 1, 1);
}

QDate FirstOfMonth(const QDate& date) {
    if (!date.isValid())
        return QDate();
    return QDate(date.year(), date.month(), 1);
}

QDate LastOfMonth(const QDate& date) {
    if (!date.isValid())
        return QDate();
    return QDate(date.year(), date.month(), date.daysInMonth());
}

QDate AddMonths(const QDate& date, int months) {
    if (!date.isValid())
        return QDate();
    // Month arithmetic on a year-and-month count, then the day clamped to the target
    // month, so that the end of a month stays within the month it lands in.
    const long long index = static_cast<long long>(date.year()) * 12 + (date.month() - 1) + months;
    const int year = static_cast<int>(index >= 0 ? index / 12 : (index - 11) / 12);
    const int month = static_cast<int>(index - static_cast<long long>(year) * 12) + 1;
    const QDate first(year, month, 1);
    if (!first.isValid())
        return QDate();
    return QDate(year, month, qMin(date.day(), first.daysInMonth()));
}

QString DateParam(const QDate& date) {
    if (!date.isValid())
        return QString();
    return date.toString(paramFormat());
}

QDate DateFromParam(const QString& text) {
    const QString t = text.trimmed();
    if (t.size() != 10)
        return QDate();
    return QDate::fromString(t, paramFormat());
}

QString MonthGenitive(int month) {
    static const char* const names[] = {"sausio",  "vasario",  "kovo",      "balandžio",
                                        "gegužės", "birželio", "liepos",    "rugpjūčio",
                                        "rugsėjo", "spalio",   "lapkričio", "gruodžio"};
    if (month < 1 || month > 12)
        return QString();
    return QString::fromUtf8(names[month - 1]);
}

QString FormatLongDate(const QString& part, const QDate& date) {
    if (!date.isValid())
        return QString();
    if (part == QLatin1String("m"))
        return MonthGenitive(date.month());
    if (part == QLatin1String("d"))
        return QString::number(date.day());
    if (part == QLatin1String("yyyy"))
        return QStringLiteral("%1").arg(date.year(), 4, 10, QChar('0'));
    return QStringLiteral("%1 m. %2 %3 d.")
        .arg(date.year(), 4, 10, QChar('0'))
        .arg(MonthGenitive(date.month()))
        .arg(date.day());
}

} // namespace orvo
