// ObjectKindRegistry holds the stored kinds of a session by object code, so that the
// generic methods DO<code>_GetOrvoObject and its siblings can be registered for each.
#pragma once

#include "host/objects/object_kind.h"

#include <QHash>
#include <QStringList>
#include <memory>

namespace orvo::host {

using ObjectKindPtr = std::shared_ptr<const ObjectKind>;

class ObjectKindRegistry {
public:
    // False when the code is already taken.
    bool Add(const ObjectKind& kind);
    ObjectKindPtr Find(const QString& code) const { return kinds_.value(code); }
    // In the order added.
    const QStringList& Codes() const { return codes_; }

private:
    QHash<QString, ObjectKindPtr> kinds_;
    QStringList codes_;
};

// The table of that name among a migration's tables; an empty description when absent.
struct Migration;
TableDef FindTable(const Migration& migration, const QString& name);

} // namespace orvo::host
