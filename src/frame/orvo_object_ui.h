// OrvoObjectUI is the navigator of the host contract: the object the host asks about
// one node of its tree. It gives the node's child rows, its menu and what a click on
// the menu does, makes data objects of its kind, and deletes them. Concrete navigators
// ("UI" + seven digits) derive from OrvoObjectUIBase, which forwards OID, OName,
// GetOrvoObjectList, DeleteOrvoObject and BO to an OrvoObjectUICore.
#pragma once

#include "core/object_base.h"
#include "core/recordset.h"
#include "core/results.h"
#include "frame/business_object.h"

#include <QList>
#include <QString>
#include <memory>

namespace orvo {

class OrvoObjectUIO;
class OrvoServices;
using OrvoObjectUIOPtr = std::shared_ptr<OrvoObjectUIO>;
using OrvoServicesPtr = std::shared_ptr<OrvoServices>;

// One row of a navigator's icons table: the class of a list row and its icon code.
struct IconMapping {
    QString OType;
    QString Icon;
    friend bool operator==(const IconMapping& a, const IconMapping& b) {
        return a.OType == b.OType && a.Icon == b.Icon;
    }
};
using IconMappings = QList<IconMapping>;

class OrvoObjectUI : public ObjectBase, public std::enable_shared_from_this<OrvoObjectUI> {
public:
    virtual QString OID() const = 0;
    virtual void SetOID(const QString& oid) = 0;
    // The title of the node.
    virtual QString OName() const = 0;

    // The menu for a click on a node; the arguments are the host's texts.
    virtual MenuItems GetMenu(const QString& oid, const QString& oType, const QString& groupId) = 0;
    // What a menu click does; the caption names the click.
    virtual ClickResult ClickMenu(const QString& oid, const QString& parameters,
                                  const QString& caption, const QString& key) = 0;
    // Whether a node may be dragged, and whether one may be dropped on another.
    virtual bool DragOK(const QString& oid) = 0;
    virtual bool DropOK(const QString& sourceOid, const QString& targetOid) = 0;

    // Child rows of a node; rows carry OIDR and OType. Null when the list cannot be read.
    virtual RecordsetPtr GetOrvoObjectList(const QString& oid, const QString& from,
                                           const QString& to) = 0;
    // Opens the object's form and hands it to the desktop.
    virtual bool AddToDeskTopOrvoObject(const QString& oid) = 0;
    // A new data object of this navigator's kind, read for `oid` (a blank one for a
    // short or empty text); null when it cannot be read.
    virtual OrvoObjectUIOPtr GetOrvoObject(const QString& oid) = 0;
    virtual IconMappings GetIconsTable() const = 0;
    virtual bool DeleteOrvoObject(const QString& oid) = 0;

    // The host hands over its services; the first call anywhere stores them for the
    // whole component.
    virtual void SetOrvoS(const OrvoServicesPtr& services) = 0;

    virtual BusinessObjectPtr BO() const = 0;
    virtual void SetBO(const BusinessObjectPtr& bo) = 0;
};

using OrvoObjectUIPtr = std::shared_ptr<OrvoObjectUI>;

} // namespace orvo
