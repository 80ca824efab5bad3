#include "frame/form_registry.h"

#include <algorithm>

namespace orvo {

void FormRegistry::Register(const QString& name, Factory factory) {
    factories_.insert(name, std::move(factory));
}

void FormRegistry::Unregister(const QString& name) {
    factories_.remove(name);
}

QStringList FormRegistry::Names() const {
    QStringList names = factories_.keys();
    std::sort(names.begin(), names.end());
    return names;
}

OrvoFormPtr FormRegistry::CreateForm(const QString& name) {
    const auto it = factories_.constFind(name);
    if (it == factories_.constEnd() || !*it)
        return nullptr;
    return (*it)();
}

} // namespace orvo
