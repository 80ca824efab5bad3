// Pieces of SQL the kept tables' triggers share (open items, debt list rows), written the
// same for both backends unless named for one.
#pragma once

#include <QString>

namespace orvo::host {

// The side a currency, addressee or reference row `alias` stands on: 1 for a row of Sign
// 1 (debit), -1 for any other sign (credit).
QString EntrySideSql(const char* alias);

// An SQLite row trigger: CREATE TRIGGER `name` `event` [WHEN `when`] BEGIN `body` END;
// `body` holds its statements with their semicolons.
QString SqliteTriggerSql(const QString& name, const QString& event, const QString& when,
                         const QString& body);

} // namespace orvo::host
