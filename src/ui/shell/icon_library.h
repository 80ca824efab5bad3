// IconLibrary turns the icon keys of the host's two icon tables (filled by the
// component's DllInicialize) and the icon codes of the navigators' icon tables into
// pictures. A key leads to the name of an icon resource, the resource to its image in
// the application's resources; a resource whose image the build does not carry is drawn
// as a small coloured badge with the end of its name, the same for the same name, so
// that every kind still has a recognisable picture of its own. The host's standard
// folder pictures ("stdClose", "stdOpen") come from the window style.
#pragma once

#include "frame/plain_layout.h"

#include <QHash>
#include <QIcon>
#include <QString>

namespace orvo::ui {

class IconLibrary {
public:
    // Reads the AddIcon and AddTreeIcon rows of a filled layout.
    void Load(const PlainLayout& layout);

    // The picture of a key of the tree icons table, then of the icons table; a key found
    // in neither is taken as a resource name itself.
    QIcon ForKey(const QString& key) const;
    // The resource name a key is drawn from (empty when the tables do not know it).
    QString PictureOf(const QString& key) const;
    // The picture of an icon resource by its name.
    QIcon ForResource(const QString& name) const;

private:
    QHash<QString, QString> treeIcons_;
    QHash<QString, QString> icons_;
    mutable QHash<QString, QIcon> cache_;
};

} // namespace orvo::ui
