#include "core/dictionary.h"

namespace orvo {

bool Dictionary::Add(const QString& key, const Value& item) {
    if (index_.contains(key))
        return false;
    keys_.append(key);
    index_.insert(key, item);
    return true;
}

Value Dictionary::Item(const QString& key) const {
    return index_.value(key);
}

void Dictionary::SetItem(const QString& key, const Value& item) {
    if (!index_.contains(key))
        keys_.append(key);
    index_.insert(key, item);
}

bool Dictionary::Remove(const QString& key) {
    if (!index_.remove(key))
        return false;
    keys_.removeOne(key);
    return true;
}

void Dictionary::RemoveAll() {
    keys_.clear();
    index_.clear();
}

ValueArray Dictionary::Items() const {
    ValueArray out;
    out.reserve(keys_.size());
    for (const QString& k : keys_)
        out.append(index_.value(k));
    return out;
}

} // namespace orvo
