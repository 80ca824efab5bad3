// The rows a query gives back, with the Code and Text of a result record. Column names
// come in the spelling of the stored schema whatever the backend (PostgreSQL would fold
// them to lower case), and look-ups by name ignore case.
#pragma once

#include "core/value.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo::host {

struct QueryResult {
    qint32 Code = 0;
    QString Text;
    QStringList Columns;
    QVector<ValueArray> Rows;

    bool ok() const { return Code == 0; }
    int RowCount() const { return Rows.size(); }
    // Index of a column by name, without regard to case; -1 when absent.
    int ColumnIndex(const QString& name) const;
    // The value at a row and column; Null when either is out of range or unknown.
    Value At(int row, int column) const;
    Value At(int row, const QString& column) const;
    // The first column of the first row, or Null: for COUNT, SUM and single look-ups.
    Value Scalar() const { return At(0, 0); }

    static QueryResult Failure(qint32 code, const QString& text) {
        QueryResult r;
        r.Code = code;
        r.Text = text;
        return r;
    }
};

} // namespace orvo::host
