// FormRegistry is the Forms service over a table of factories registered by name: the
// desktop registers its widgets here at start, tests register theirs.
#pragma once

#include "frame/forms.h"

#include <QHash>
#include <QStringList>
#include <functional>

namespace orvo {

class FormRegistry : public Forms {
public:
    using Factory = std::function<OrvoFormPtr()>;

    // Registers (or replaces) the factory of a form name.
    void Register(const QString& name, Factory factory);
    void Unregister(const QString& name);
    bool Has(const QString& name) const { return factories_.contains(name); }
    QStringList Names() const;

    OrvoFormPtr CreateForm(const QString& name) override;

private:
    QHash<QString, Factory> factories_;
};

} // namespace orvo
