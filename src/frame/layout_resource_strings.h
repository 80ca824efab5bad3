// The layout resource of the component: string rows numbered from 10000, each
// "key|parent|text-number", that the host reads to build its menu bar. The component
// does not read them itself; they are kept here as data so that every build carries
// the same table.
#pragma once

#include <QList>
#include <QString>

namespace orvo {

struct ResourceString {
    int Id = 0;
    QString Text;
    friend bool operator==(const ResourceString& a, const ResourceString& b) {
        return a.Id == b.Id && a.Text == b.Text;
    }
};

class LayoutResourceStrings {
public:
    static constexpr int FirstId = 10000;
    // The rows in order, from FirstId.
    static QList<ResourceString> Rows();
    // The text of a row by its number; empty when there is none.
    static QString Text(int id);
};

} // namespace orvo
