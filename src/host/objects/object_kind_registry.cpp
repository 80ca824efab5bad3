#include "host/objects/object_kind_registry.h"

#include "host/storage/migration.h"

namespace orvo::host {

bool ObjectKindRegistry::Add(const ObjectKind& kind) {
    if (kind.Code.isEmpty() || kinds_.contains(kind.Code))
        return false;
    kinds_.insert(kind.Code, std::make_shared<const ObjectKind>(kind));
    codes_.append(kind.Code);
    return true;
}

TableDef FindTable(const Migration& migration, const QString& name) {
    for (const TableDef& t : migration.Tables)
        if (t.Name.compare(name, Qt::CaseInsensitive) == 0)
            return t;
    return TableDef();
}

} // namespace orvo::host
