#include "host/storage/row_cursor.h"

#include <QAnyStringView>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

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

// Hashes the bytes of a text, so that a column's texts can be found by the bytes a row
// holds without making a key of them.
struct BytesHash {
    using is_transparent = void;
    size_t operator()(std::string_view bytes) const { return std::hash<std::string_view>{}(bytes); }
};

} // namespace

struct RowCursor::Recurring {
    std::vector<std::unordered_map<std::string, QString, BytesHash, std::equal_to<>>> byColumn;
};

RowCursor::RowCursor() = default;
RowCursor::~RowCursor() = default;

QString RowCursor::RecurringText(int column) const {
    const char* data = nullptr;
    int size = 0;
    if (!TextBytes(column, &data, &size))
        return OtherText(column);
    if (size == 0 || column < 0)
        return QString();
    if (!recurring_)
        recurring_ = std::make_unique<Recurring>();
    if (size_t(column) >= recurring_->byColumn.size())
        recurring_->byColumn.resize(size_t(column) + 1);
    auto& made = recurring_->byColumn[size_t(column)];
    const std::string_view bytes(data, size_t(size));
    const auto it = made.find(bytes);
    if (it != made.end())
        return it->second;
    return made.emplace(std::string(bytes), QString::fromUtf8(data, size)).first->second;
}

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
