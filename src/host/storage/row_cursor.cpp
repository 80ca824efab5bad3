#include "host/storage/row_cursor.h"

#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvo::host {

namespace {

// Hashes the bytes of a text, so that a column's texts can be found by the bytes a row
// holds without making a key of them.
struct BytesHash {
    using is_transparent = void;
    size_t operator()(std::string_view bytes) const { return std::hash<std::string_view>{}(bytes); }
};

// A text handed out and the bytes it was made from: the next row's bytes are compared
// with these rather than with the text, which for a text with letters beyond ASCII would
// mean decoding them first.
struct MadeText {
    std::string Bytes;
    QString Text;
};

// The slot of a column among the texts made so far, added when the column is first read.
template <typename Slot> Slot& slotOf(std::vector<Slot>& slots, int column) {
    if (size_t(column) >= slots.size())
        slots.resize(size_t(column) + 1);
    return slots[size_t(column)];
}

} // namespace

struct RowCursor::Made {
    std::vector<MadeText> Last;
    std::vector<std::unordered_map<std::string, QString, BytesHash, std::equal_to<>>> Recurring;
};

RowCursor::RowCursor() : made_(std::make_unique<Made>()) {}
RowCursor::~RowCursor() = default;

QString RowCursor::Text(int column) const {
    return madeText(column, false);
}

QString RowCursor::RecurringText(int column) const {
    return madeText(column, true);
}

QString RowCursor::madeText(int column, bool recurring) const {
    const char* data = nullptr;
    int size = 0;
    if (!TextBytes(column, &data, &size))
        return OtherText(column);
    if (size == 0)
        return QString();
    if (recurring) {
        auto& made = slotOf(made_->Recurring, column);
        const std::string_view bytes(data, size_t(size));
        const auto it = made.find(bytes);
        if (it != made.end())
            return it->second;
        return made.emplace(std::string(bytes), QString::fromUtf8(data, size)).first->second;
    }
    MadeText& last = slotOf(made_->Last, column);
    if (last.Bytes.size() == size_t(size) &&
        std::memcmp(last.Bytes.data(), data, size_t(size)) == 0)
        return last.Text;
    last.Bytes.assign(data, size_t(size));
    last.Text = QString::fromUtf8(data, size);
    return last.Text;
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
