#include "host/storage/row_cursor.h"

#include <QAnyStringView>

namespace orvo::host {

namespace {

// Whether UTF-8 bytes spell a text. UTF-8 takes at least as many bytes as UTF-16 takes
// units, and as many only for plain ASCII, which is compared here byte by byte: that is
// most of a ledger's texts (accounts, numbers, codes), and the general comparison costs
// several times more.
bool spells(const char* data, int size, const QString& text) {
    if (size < text.size())
        return false;
    if (size > text.size())
        return QAnyStringView::equal(QUtf8StringView(data, size), text);
    const QChar* units = text.constData();
    for (int i = 0; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(data[i]);
        if (byte >= 0x80 || units[i].unicode() != byte)
            return false;
    }
    return true;
}

} // namespace

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
    if (spells(data, size, last))
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
