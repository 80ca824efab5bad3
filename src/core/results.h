// The result records that cross every module boundary instead of exceptions.
// Code 0 is success; 777 is a refusal by a check of the accounting component whose
// Text is for the user; 999 the same refusal where no warning treatment was asked.
// RightsRecord, MenuItem and ClickResult are the other records of the host contract.
#pragma once

#include "core/value.h"

#include <QList>
#include <QString>

namespace orvo {

namespace codes {
inline constexpr qint32 Ok = 0;
inline constexpr qint32 Refused = 777;
inline constexpr qint32 RefusedNoWarning = 999;
} // namespace codes

struct ResultRecord {
    qint32 Code = 0;
    QString Text;

    bool ok() const { return Code == 0; }
    static ResultRecord Success() { return {}; }
    static ResultRecord Failure(qint32 code, const QString& text) { return {code, text}; }
};

struct ValueResult {
    qint32 Code = 0;
    QString Text;
    orvo::Value Value;

    bool ok() const { return Code == 0; }
    static ValueResult Of(const orvo::Value& v) { return {0, QString(), v}; }
    static ValueResult Failure(qint32 code, const QString& text) { return {code, text, {}}; }
};

struct BOResult {
    qint32 Code = 0;
    QString Text;
    // As a rule a recordset.
    orvo::Value Data;

    bool ok() const { return Code == 0; }
    static BOResult Of(const orvo::Value& v) { return {0, QString(), v}; }
    static BOResult Failure(qint32 code, const QString& text) { return {code, text, {}}; }
};

// Five 16-bit flags; -1 is true and 0 false, as the host gives them.
struct RightsRecord {
    qint16 Read = 0;
    qint16 Delete = 0;
    qint16 Edit = 0;
    qint16 Create = 0;
    qint16 Fifth = 0;

    static qint16 Flag(bool b) { return b ? qint16(-1) : qint16(0); }
};

// One row of a node's menu; a caption of "-" is a separator. The caption is also what
// ClickMenu recognises the click by.
struct MenuItem {
    QString Caption;
    QString Key;
    // Shown with a check mark (a menu entry that toggles a mode).
    bool Checked = false;
};
using MenuItems = QList<MenuItem>;

// What ClickMenu tells the host to do: 0 nothing, 1 show the form in Payload,
// 4 apply the array of search criteria in Payload to the host's list.
struct ClickResult {
    qint32 Action = 0;
    orvo::Value Payload;

    static constexpr qint32 Nothing = 0;
    static constexpr qint32 ShowForm = 1;
    static constexpr qint32 NarrowList = 4;
};

} // namespace orvo
