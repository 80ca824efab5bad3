// The account settings: which account plays which role (a setting Code such as "2710"
// bank accounts or "536" income of rate change). One rule answers both readers, so the
// group editor's list and the PresetAccounts that every window looks roles up in never
// disagree:
//
//   1. The chart's roles are the book-wide settings: every role of BRASettings with each
//      account whose BRAPropertyID names it (CodeName the role's name).
//   2. A named set (a group's AccountCode, rows of AccountSettings) replaces, for each
//      Code it names, the chart's accounts of that Code; the Codes it leaves out keep the
//      chart's. A row of the set whose Account is empty removes the role for that set.
//   3. Only rows with an account are settings; AccountName is the chart's name of the
//      account (empty when the number is not in the chart).
//
// Rows come ordered by Code, then Account. PresetAccounts is these rows read by Code:
// Code, Account, Name (= AccountName).
#pragma once

#include "core/recordset.h"

#include <QString>

namespace orvo::host {

class Database;

struct AccountSettingRow {
    QString Code;
    QString CodeName;
    QString Account;
    QString AccountName;
};

// The settings of the named set `accountCode` (empty: the chart's alone), only of
// `code` when it is not empty. False with `error` set when reading fails.
bool ReadAccountSettings(Database& db, const QString& accountCode, const QString& code,
                         QVector<AccountSettingRow>* rows, QString* error);

// The rows as a recordset of Code, CodeName, Account, AccountName.
RecordsetPtr AccountSettingsRecordset(const QVector<AccountSettingRow>& rows);
// The rows as PresetAccounts gives them: Code, Account, Name.
RecordsetPtr PresetAccountsRecordset(const QVector<AccountSettingRow>& rows);

// "None" and blanks mean no code, as the component sends them.
QString SettingCodeArgument(const QString& text);

} // namespace orvo::host
