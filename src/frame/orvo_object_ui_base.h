// OrvoObjectUIBase is the common base of the component's navigators. It holds the
// OrvoObjectUICore and forwards OID, OName, GetOrvoObjectList, DeleteOrvoObject, BO and
// the icons table to it. GetOrvoObject makes a data object (NewDataObject, by default
// from the component's ObjectRegistry), gives it this navigator, sets its OIDR to the
// argument and reads it: a failed read gives null, a successful one marks the
// recordset for modified-only transfer. AddToDeskTopOrvoObject opens the object's form
// through Properties("GetObjectForm") and hands it to the desktop. SetOrvoS keeps the
// services and stores them module-wide on the first call. A navigator of a later
// subsystem overrides GetMenu, ClickMenu and whatever else its Part gives a body of its
// own; the defaults are an empty menu, a click that does nothing, and no drag or drop.
#pragma once

#include "frame/orvo_object_ui.h"
#include "frame/orvo_object_ui_core.h"

#include <functional>

namespace orvo {

class OrvoObjectUIBase : public OrvoObjectUI {
public:
    // `code` is the class code ("O0201500"), `className` the system's name
    // ("UI0201500"), `title` the node's title.
    OrvoObjectUIBase(const QString& code, const QString& className, const QString& title);

    QString ClassName() const override { return className_; }

    QString OID() const override { return core_.OID(); }
    void SetOID(const QString& oid) override { core_.SetOID(oid); }
    QString OName() const override { return core_.OName(); }

    MenuItems GetMenu(const QString& oid, const QString& oType, const QString& groupId) override;
    ClickResult ClickMenu(const QString& oid, const QString& parameters, const QString& caption,
                          const QString& key) override;
    bool DragOK(const QString& oid) override;
    bool DropOK(const QString& sourceOid, const QString& targetOid) override;

    RecordsetPtr GetOrvoObjectList(const QString& oid, const QString& from,
                                   const QString& to) override {
        return core_.GetOrvoObjectList(oid, from, to);
    }
    bool AddToDeskTopOrvoObject(const QString& oid) override;
    OrvoObjectUIOPtr GetOrvoObject(const QString& oid) override;
    IconMappings GetIconsTable() const override { return core_.GetIconsTable(); }
    bool DeleteOrvoObject(const QString& oid) override { return core_.DeleteOrvoObject(oid); }

    void SetOrvoS(const OrvoServicesPtr& services) override;
    OrvoServicesPtr Services() const;

    BusinessObjectPtr BO() const override { return core_.BO(); }
    void SetBO(const BusinessObjectPtr& bo) override { core_.SetBO(bo); }

    OrvoObjectUICore& Core() { return core_; }
    const OrvoObjectUICore& Core() const { return core_; }

protected:
    // A new, unread data object for `oid`: by default the registered data object of the
    // argument's kind when there is one, else of this navigator's code.
    virtual OrvoObjectUIOPtr NewDataObject(const QString& oid);

    // "Atrinkti": the host's selection dialog gives the criteria; with an answer the
    // host is told to narrow its list (Action 4) to `list()` with the criteria text
    // "'','" + answer + "'". No shell or no answer: no action.
    ClickResult NarrowBySelection(const QString& oid, const std::function<RecordsetPtr()>& list);

private:
    QString className_;
    OrvoObjectUICore core_;
    OrvoServicesPtr services_;
};

} // namespace orvo
