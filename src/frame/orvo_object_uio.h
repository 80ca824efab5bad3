// OrvoObjectUIO is the data object of the host contract: one record of one kind of
// object (an operation, a group, a journal definition), read from and stored through
// the business object. Forms write into the current row of its recordset and change it
// through Methods; queries go through Properties; Save hands the recordset to the
// business object. Concrete data objects ("UIO" + seven digits) derive from
// OrvoObjectUIOBase, which forwards everything except Properties, Methods and Save to
// an OrvoObjectUIOCore.
#pragma once

#include "core/object_base.h"
#include "core/recordset.h"
#include "core/results.h"
#include "core/value.h"
#include "frame/business_object.h"

#include <QString>
#include <memory>

namespace orvo {

class OrvoObjectUI;
using OrvoObjectUIPtr = std::shared_ptr<OrvoObjectUI>;

class OrvoObjectUIO : public ObjectBase, public std::enable_shared_from_this<OrvoObjectUIO> {
public:
    // A new GUID text for a new entry.
    virtual QString GetGUID() = 0;

    virtual QString OID() const = 0;
    virtual void SetOID(const QString& oid) = 0;
    // Reference of the stored record; fewer than nine characters is a record not yet
    // stored. Setting it before Read selects the record.
    virtual QString OIDR() const = 0;
    virtual void SetOIDR(const QString& oidr) = 0;
    virtual QString OName() const = 0;
    virtual QString OType() const = 0;
    virtual void SetOType(const QString& type) = 0;
    virtual QString Preview() const = 0;
    virtual void SetPreview(const QString& preview) = 0;

    // The recordset whose one current row is the object's Fields. Forms write through
    // it; the business object receives it on Save. Null before a successful Read.
    virtual RecordsetPtr RsFields() const = 0;
    // A field of the current row; Null when there is no recordset or no such field.
    Value Field(const QString& name) const;
    // Writes a field of the current row; false when there is no recordset or the field
    // refuses the value.
    bool SetField(const QString& name, const Value& value);

    // Read-only queries; Parameters is one text, passed on as the business object wants
    // it. A query shows its own warning on failure.
    virtual ValueResult Properties(const QString& name, const QString& parameters) = 0;
    // Commands with parameters by position. A command leaves showing failures to its
    // caller.
    virtual ValueResult Methods(const QString& name, const ValueArray& parameters) = 0;

    // Loads the record named by OIDR, or a blank structure for a new one.
    virtual ResultRecord Read() = 0;
    // Stores the recordset; on success OIDR holds the stored record's reference.
    virtual ResultRecord Save(const Value& rs2 = Value(), const Value& rs3 = Value()) = 0;

    // The navigator that made this object; held weakly, so null once it is gone.
    virtual OrvoObjectUIPtr UI() const = 0;
    virtual void SetUI(const OrvoObjectUIPtr& ui) = 0;
    virtual BusinessObjectPtr BO() const = 0;

    // Drops every change made since the last Read or Save.
    virtual void CancelUpdate() = 0;
};

using OrvoObjectUIOPtr = std::shared_ptr<OrvoObjectUIO>;

// The data object held in a value (a form's payload, a method's result), or null.
OrvoObjectUIOPtr AsDataObject(const Value& value);

} // namespace orvo
