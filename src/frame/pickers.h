// Pickers is the host's object picker: a dialog that lists objects of the given kinds
// and returns the chosen one as "OIDR_text" (the reference, "_", the object's display
// text), or an empty text when nothing is chosen. The group picker does the same for
// the groups of a kind.
#pragma once

#include <QString>
#include <memory>

namespace orvo {

class Pickers {
public:
    virtual ~Pickers() = default;
    // `kinds` is one object code or several joined by ";"; `field` names the field whose
    // value is the display text (empty for the kind's own preview); `filter` narrows the
    // list in the filter language.
    virtual QString PickObject(const QString& kinds, const QString& title, const QString& field,
                               const QString& filter) = 0;
    // A group of objects of the kind `code`, as "OIDR_text", or empty.
    virtual QString PickGroup(const QString& code, const QString& title) = 0;
};

using PickersPtr = std::shared_ptr<Pickers>;

} // namespace orvo
