// SecurityHeader tells the host which rights of the component an administrator can
// grant: sixteen rows, in the order the host shows them. Rights that depend on an
// operation group are not listed; they are read under "CBROperRights" and the group's
// number.
#pragma once

#include "frame/component_right.h"

#include <QList>

namespace orvo {

class SecurityHeader {
public:
    // A new ordered list on every call; rows are reached by position.
    QList<ComponentRight> GetComponentList() const;
};

} // namespace orvo
