// OrvoObjectUICore is what every navigator delegates the plain parts of the contract
// to: its OID and title, the business object, the icons table it builds at creation,
// the list of child rows and the deletion of a record. It is bound to one class code C
// and talks to the business object with these names:
//
//   List   -> "D" + C + "_GetOrvoObjectList", text "'" + OID + "','" + From + "','" + To
//             + "'"; Data: a recordset of rows carrying OIDR and OType.
//   Delete -> "D" + C + "_DeleteOrvoObject",  text "'" + OID + "'".
//
// A failed list or deletion is not shown here: the host's tree shows an empty branch,
// and LastResult() keeps the business object's code and text for whoever asks.
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "frame/business_object.h"
#include "frame/orvo_object_ui.h"

#include <QString>

namespace orvo {

class OrvoObjectUICore {
public:
    OrvoObjectUICore(const QString& code, const QString& title);

    QString Code() const { return code_; }
    // OID starts as the class code.
    QString OID() const { return oid_; }
    void SetOID(const QString& oid) { oid_ = oid; }
    QString OName() const { return title_; }

    BusinessObjectPtr BO() const { return bo_; }
    void SetBO(const BusinessObjectPtr& bo) { bo_ = bo; }

    RecordsetPtr GetOrvoObjectList(const QString& oid, const QString& from, const QString& to);
    bool DeleteOrvoObject(const QString& oid);
    ResultRecord LastResult() const { return last_; }

    void AddIcon(const QString& oType, const QString& icon) { icons_.append({oType, icon}); }
    IconMappings GetIconsTable() const { return icons_; }

private:
    QString code_;
    QString title_;
    QString oid_;
    BusinessObjectPtr bo_;
    IconMappings icons_;
    ResultRecord last_;
};

} // namespace orvo
