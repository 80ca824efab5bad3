// ViewPeriod is the period the tree shows operations in ("Peržiūros nustatymai"): two
// dates, either of which may be missing, meaning no bound on that side. It is kept in
// the user's settings as the text "yyyy.MM.dd;yyyy.MM.dd" (an empty side for a missing
// bound), which is also what the shell operation GetOldPeriod answers.
//
// A dated list (the operations under a group) is still read a screen at a time, so the
// tree hands its navigator both the period and the positions: From and To each carry
// "yyyy.MM.dd;position", the date part empty where the period has no bound on that side.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

namespace orvo::ui {

struct ViewPeriod {
    QDate From;
    QDate To;

    // Where the period is kept in the user's settings.
    static QString SettingsSection() { return QStringLiteral("Desktop"); }
    static QString SettingsKey() { return QStringLiteral("ViewPeriod"); }

    // Reads "yyyy.MM.dd;yyyy.MM.dd"; a side that is empty or no date is no bound.
    static ViewPeriod FromText(const QString& text);
    QString Text() const;

    // True when neither side is bounded.
    bool IsOpen() const { return From.isNull() && To.isNull(); }
    // Why the period cannot be taken (its start after its end); empty when it can.
    QString Refusal() const;

    // The From and To of one screen of a dated list, for its positions.
    QString ListFrom(int position) const;
    QString ListTo(int position) const;

    // The navigators whose lists are dated: the operation groups list their operations.
    static QStringList DatedKinds() { return {QStringLiteral("O0201400")}; }

    friend bool operator==(const ViewPeriod& a, const ViewPeriod& b) {
        return a.From == b.From && a.To == b.To;
    }
};

} // namespace orvo::ui
