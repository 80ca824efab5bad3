// Dictionary is the ordered string-keyed map of the system (account number to name,
// currency code to rate, placeholder to value). Keys keep their insertion order and
// are compared exactly; Add refuses a key that is already there.
#pragma once

#include "core/value.h"

#include <QHash>
#include <QStringList>

namespace orvo {

class Dictionary {
public:
    int Count() const { return keys_.size(); }
    bool Exists(const QString& key) const { return index_.contains(key); }
    // Adds a new key; returns false, changing nothing, when the key is already there.
    bool Add(const QString& key, const Value& item);
    // The item of a key, Null when the key is absent.
    Value Item(const QString& key) const;
    // Sets the item of a key, adding the key at the end when it is new.
    void SetItem(const QString& key, const Value& item);
    // Removes a key; returns false when it was not there.
    bool Remove(const QString& key);
    void RemoveAll();
    const QStringList& Keys() const { return keys_; }
    ValueArray Items() const;

    static DictionaryPtr Create() { return std::make_shared<Dictionary>(); }

private:
    QStringList keys_;
    QHash<QString, Value> index_;
};

} // namespace orvo
