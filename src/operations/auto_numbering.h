// Auto-numbering of operations, the component's side. A group sets a mask of parts
// joined by "_" ("Date_Prefix_AutoNumber"); the business object keeps the counter and
// answers the next value with the group's mask, prefix and template. The number is the
// parts' texts joined by "-" ("261115-KO-0007"), and the operation keeps the counter
// beside it in AutoNumber, so that the counter can be rebuilt from whatever number the
// user finally left in the field (SaveAutoNumber) or set by hand (CheckAutoNumber).
#pragma once

#include "core/results.h"
#include "core/value.h"

#include <QDate>
#include <QString>

namespace orvo {

class UIO0201500;

class AutoNumbering {
public:
    explicit AutoNumbering(UIO0201500& operation) : op_(operation) {}

    // The number a mask gives: each part of `mask` (split at "_") in turn, "-" before
    // every part but the first. "Date" is `date` as yymmdd, "UserPrefix" `userPref`,
    // "AutoNumber" the counter with leading zeros up to the length of `anTemplate` (a
    // longer counter stays whole), "Prefix" `prefix`; any other part is empty but
    // still adds its "-".
    static QString BuildAutoNumber(const QString& mask, const QString& prefix,
                                   const QString& anTemplate, qint32 counter,
                                   const QString& userPref, const QDate& date);

    // The counter a number holds under a mask, as SaveAutoNumber reads it: the part at
    // the index of "AutoNumber", when it is a whole number without "," or "." and not
    // above 2147483647. `tooLarge` tells that the part was a number above that.
    static qint32 CounterFromNumber(const QString& mask, const QString& numberText,
                                    bool* tooLarge = nullptr);

    // GetAutoNumber([keptNumberFlag, groupText]): the next number of the operation's
    // group for the session's user, "??" when it cannot be made. The counter goes to
    // the operation's AutoNumber.
    ValueResult GetAutoNumber(const ValueArray& parameters);
    // SaveAutoNumber(mask, numberText): AutoNumber from the number the user left; 0
    // when the number holds no counter. Nothing happens when either text is empty.
    ValueResult SaveAutoNumber(const ValueArray& parameters);
    // CheckAutoNumber: the counter changed by hand, asked through an input box and
    // confirmed by a question. Value true when it was changed.
    ValueResult CheckAutoNumber();

private:
    UIO0201500& op_;
};

} // namespace orvo
