// OrvoObjectUIOCore is what every data object delegates the plain parts of the contract
// to: identifiers, the recordset of the one record, reading, storing, deleting and
// cancelling through the business object, and new GUIDs. It is bound to one class
// code C (such as "O0201500"), and talks to the business object with these names:
//
//   Read    -> "D" + C + "_GetOrvoObject",    text "'" + OIDR + "'" (OID when OIDR is
//              empty); Data: a one-row recordset, the stored record, or for a reference
//              shorter than nine characters a blank row whose nested fields hold empty
//              recordsets.
//   Save    -> "D" + C + "_SaveOrvoObject",   text "'" + OIDR + "'", with the object's
//              recordset in result.Data on entry (an array of it and the two extra
//              recordsets when a caller gives them). Data on return: a recordset whose
//              field OIDR is the stored record's reference and, when the host keeps
//              one, LockGUID the new lock token.
//   Delete  -> "D" + C + "_DeleteOrvoObject", text "'" + OIDR + "'".
//   List    -> "D" + C + "_GetOrvoObjectList" (see OrvoObjectUICore).
//
// GUIDs are written as 38 characters, upper-case hex in braces:
// "{3F2504E0-4F89-11D3-9A0C-0305E82C3301}".
#pragma once

#include "core/recordset.h"
#include "core/results.h"
#include "frame/business_object.h"

#include <QString>
#include <memory>

namespace orvo {

class OrvoObjectUI;

class OrvoObjectUIOCore {
public:
    // `code` is the class code C; `title` the object's title when its record has none.
    explicit OrvoObjectUIOCore(const QString& code, const QString& title = QString());

    // The business object method "D" + code + "_" + verb.
    static QString MethodName(const QString& code, const QString& verb);
    // A new GUID text in the form described above.
    static QString NewGUID();

    QString Code() const { return code_; }
    QString GetGUID() const { return NewGUID(); }

    // OID starts as the class code, OIDR empty, OType as the class code.
    QString OID() const { return oid_; }
    void SetOID(const QString& oid) { oid_ = oid; }
    QString OIDR() const { return oidr_; }
    void SetOIDR(const QString& oidr) { oidr_ = oidr; }
    // Whether OIDR names a stored record (nine characters or more).
    bool IsStored() const { return oidr_.size() >= 9; }
    // The record's "OName" field when it has one that is not empty, else its "Name"
    // field likewise, else the title given to the core.
    QString OName() const;
    void SetTitle(const QString& title) { title_ = title; }
    QString OType() const { return otype_; }
    void SetOType(const QString& type) { otype_ = type; }
    QString Preview() const { return preview_; }
    void SetPreview(const QString& preview) { preview_ = preview; }

    RecordsetPtr RsFields() const { return rs_; }
    // The named command that puts a kept recordset back as the object's data.
    ResultRecord SetRsFields(const RecordsetPtr& rs);
    // The core's named commands, by the Methods convention: "SetRsFields" with the
    // recordset as its one parameter.
    ValueResult Methods(const QString& name, const ValueArray& parameters);

    // The navigator is held weakly; the business object strongly, taken from the
    // navigator when the core gets one and has none of its own.
    std::shared_ptr<OrvoObjectUI> UI() const { return ui_.lock(); }
    void SetUI(const std::shared_ptr<OrvoObjectUI>& ui);
    BusinessObjectPtr BO() const;
    void SetBO(const BusinessObjectPtr& bo) { bo_ = bo; }

    ResultRecord Read();
    ResultRecord Save(const Value& rs2 = Value(), const Value& rs3 = Value());
    ResultRecord Delete();
    // Undoes every change since the last Read or Save, nested recordsets included.
    void CancelUpdate();

    // Marks every row of a recordset and of its nested recordsets unchanged, as a
    // successful save leaves them; CancelAll undoes their changes in the same depth.
    static void AcceptAll(const RecordsetPtr& rs);
    static void CancelAll(const RecordsetPtr& rs);

private:
    QString code_;
    QString title_;
    QString oid_;
    QString oidr_;
    QString otype_;
    QString preview_;
    RecordsetPtr rs_;
    std::weak_ptr<OrvoObjectUI> ui_;
    BusinessObjectPtr bo_;
};

} // namespace orvo
