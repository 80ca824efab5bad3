#include "ui/shell/view_period.h"

namespace orvo::ui {

namespace {

const QString kDateFormat = QStringLiteral("yyyy.MM.dd");

QDate dateOf(const QString& text) {
    const QDate date = QDate::fromString(text.trimmed(), kDateFormat);
    return date.isValid() ? date : QDate();
}

QString textOf(const QDate& date) {
    return date.isValid() ? date.toString(kDateFormat) : QString();
}

} // namespace

ViewPeriod ViewPeriod::FromText(const QString& text) {
    ViewPeriod period;
    period.From = dateOf(text.section(QLatin1Char(';'), 0, 0));
    period.To = dateOf(text.section(QLatin1Char(';'), 1, 1));
    return period;
}

QString ViewPeriod::Text() const {
    return textOf(From) + QLatin1Char(';') + textOf(To);
}

QString ViewPeriod::Refusal() const {
    if (From.isValid() && To.isValid() && From > To)
        return QStringLiteral("Laikotarpio pradžia „%1“ vėlesnė už jo pabaigą „%2“.")
            .arg(textOf(From), textOf(To));
    return QString();
}

QString ViewPeriod::ListFrom(int position) const {
    return textOf(From) + QLatin1Char(';') + QString::number(position);
}

QString ViewPeriod::ListTo(int position) const {
    return textOf(To) + QLatin1Char(';') + QString::number(position);
}

} // namespace orvo::ui
