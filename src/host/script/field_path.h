// Paths into the nested rows of a record, as a script names them: field names and row
// numbers joined by "/". "BR/0/SumA" is the field SumA of the first entry of the
// operation's current row; "BR/1/BRCurrency/0/RateCurr" goes one level deeper. A row
// number counts the visible rows of its recordset from 0, and -1 is the last one. The
// row a path passes through becomes the current row of its recordset, as when a user
// selects it, so the commands that work on "the current entry" see it afterwards.
#pragma once

#include "core/recordset.h"

#include <QString>
#include <QStringList>

namespace orvo::host {

struct RowPlace {
    // The recordset whose current row was reached; null on failure.
    RecordsetPtr Rs;
    QString Error;
    bool ok() const { return Rs != nullptr; }
};

class FieldPath {
public:
    // Walks pairs of a nested field and a row number from the current row of `root`:
    // {"BR","0","BRCurrency","1"}. An empty list gives `root` itself, which must have a
    // current row. "new" as the last row number adds a row to the last recordset.
    static RowPlace WalkRows(const RecordsetPtr& root, const QStringList& pairs,
                             const QString& shownPath);

    // A key of a "fields" object split into the rows to walk and the field at the end:
    // "BR/0/SumA" gives {"BR","0"} and "SumA". False, with a text, when the key has a
    // field without its row number ("BR/SumA").
    static bool SplitKey(const QString& key, QStringList* pairs, QString* field, QString* error);

    // The nested recordset a path ending in a field names: "BR" or "BR/0/BRCurrency".
    static RowPlace NestedRecordset(const RecordsetPtr& root, const QString& path);
};

} // namespace orvo::host
