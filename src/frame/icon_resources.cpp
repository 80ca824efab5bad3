#include "frame/icon_resources.h"

namespace orvo {

IconResources IconResources::Component() {
    static const char* const names[] = {
        "C0200100",       "C0200200",       "C0200300", "C0200400",     "C0200500J", "C0200500G",
        "C0200500JO",     "C0200700",       "C0200900", "C0201000",     "C0201200",  "C0201300",
        "C0201400",       "C0201500",       "C0201501", "C0201502",     "C0201503",  "C0201504",
        "C0201505",       "C0201506",       "C0201600", "A02020011001", "SYSTEM",    "LAYOUT",
        "DOCUMENT_CHECK", "DOCUMENT_ERROR",
    };
    IconResources table;
    for (const char* n : names) {
        const QString name = QString::fromLatin1(n);
        table.Add(name, PathFor(name));
    }
    return table;
}

QString IconResources::PathFor(const QString& name) {
    return QStringLiteral(":/icons/") + name + QStringLiteral(".png");
}

bool IconResources::Contains(const QString& name) const {
    for (const auto& e : entries_)
        if (e.first == name)
            return true;
    return false;
}

QString IconResources::Path(const QString& name) const {
    for (const auto& e : entries_)
        if (e.first == name)
            return e.second;
    return QString();
}

QStringList IconResources::Names() const {
    QStringList names;
    for (const auto& e : entries_)
        names.append(e.first);
    return names;
}

void IconResources::Add(const QString& name, const QString& path) {
    for (auto& e : entries_) {
        if (e.first == name) {
            e.second = path;
            return;
        }
    }
    entries_.append({name, path});
}

bool IconResources::Remove(const QString& name) {
    for (int i = 0; i < entries_.size(); ++i) {
        if (entries_.at(i).first == name) {
            entries_.removeAt(i);
            return true;
        }
    }
    return false;
}

} // namespace orvo
