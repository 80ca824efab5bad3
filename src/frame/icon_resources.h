// IconResources is the table of the icon resources the component carries: a resource
// name (the name the registration passes as a picture) and the path of its image in the
// application's resources, such as ":/icons/C0201500.png". Registration consults the
// table, so a name missing from it fails the registration instead of showing a blank.
#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

namespace orvo {

class IconResources {
public:
    // The component's own table, in the order the resources are listed.
    static IconResources Component();
    // The resource path a name is given in the component's table.
    static QString PathFor(const QString& name);

    bool Contains(const QString& name) const;
    // The path of a resource; empty when the table does not carry it.
    QString Path(const QString& name) const;
    QStringList Names() const;
    int Count() const { return entries_.size(); }

    void Add(const QString& name, const QString& path);
    bool Remove(const QString& name);

private:
    QList<QPair<QString, QString>> entries_;
};

} // namespace orvo
