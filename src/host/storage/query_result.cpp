#include "host/storage/query_result.h"

namespace orvo::host {

int QueryResult::ColumnIndex(const QString& name) const {
    for (int i = 0; i < Columns.size(); ++i) {
        if (Columns[i].compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

Value QueryResult::At(int row, int column) const {
    if (row < 0 || row >= Rows.size() || column < 0 || column >= Rows[row].size())
        return Value();
    return Rows[row][column];
}

Value QueryResult::At(int row, const QString& column) const {
    return At(row, ColumnIndex(column));
}

} // namespace orvo::host
