// ComponentRight is one row of the list of rights an administrator can grant for the
// component: Kind 10 is the component's own header row, 2 a right over the full set of
// actions (read, edit, delete, create), 1 a right that is only on or off.
#pragma once

#include <QString>

namespace orvo {

struct ComponentRight {
    QString ParentKey;
    QString Key;
    QString Title;
    qint32 Kind = 0;

    static constexpr qint32 Header = 10;
    static constexpr qint32 FullActions = 2;
    static constexpr qint32 OnOff = 1;

    friend bool operator==(const ComponentRight& a, const ComponentRight& b) {
        return a.ParentKey == b.ParentKey && a.Key == b.Key && a.Title == b.Title &&
               a.Kind == b.Kind;
    }
};

} // namespace orvo
