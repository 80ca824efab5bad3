#include "host/storage/row_cursor.h"

#include <QAnyStringView>

namespace orvo::host {

QString RowCursor::Text(int column) const {
    const char* data = nullptr;
    int size = 0;
    if (!TextBytes(column, &data, &size))
        return OtherText(column);
    if (size == 0)
        return QString();
    if (column >= last_.size())
        last_.resize(column + 1);
    QString& last = last_[column];
    // UTF-8 takes at least as many bytes as UTF-16 takes units, so a shorter text differs.
    if (size >= last.size() && QAnyStringView::equal(QUtf8StringView(data, size), last))
        return last;
    last = QString::fromUtf8(data, size);
    return last;
}

QDate RowCursor::IsoDate(const char* bytes, int size) {
    if (!bytes || size != 10 || bytes[4] != '-' || bytes[7] != '-')
        return QDate();
    int parts[3] = {0, 0, 0};
    const int starts[3] = {0, 5, 8};
    const int lengths[3] = {4, 2, 2};
    for (int p = 0; p < 3; ++p)
        for (int k = 0; k < lengths[p]; ++k) {
            const char c = bytes[starts[p] + k];
            if (c < '0' || c > '9')
                return QDate();
            parts[p] = parts[p] * 10 + (c - '0');
        }
    return QDate(parts[0], parts[1], parts[2]);
}

} // namespace orvo::host
