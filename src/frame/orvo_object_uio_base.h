// OrvoObjectUIOBase is the common base of the component's data objects. It holds the
// OrvoObjectUIOCore and forwards to it everything the contract says a data object only
// passes on (identifiers, recordset, GUIDs, navigator, business object, Read,
// CancelUpdate). Properties follows the Properties convention over the class's two
// lists of query names, after giving the subclass the chance to serve a name itself
// (OwnProperty). Methods and Save pass to the core unless the subclass overrides them.
#pragma once

#include "frame/orvo_object_uio.h"
#include "frame/orvo_object_uio_core.h"
#include "frame/properties_convention.h"

#include <optional>

namespace orvo {

class OrvoObjectUIOBase : public OrvoObjectUIO {
public:
    // `code` is the class code ("O0201500"); `className` the system's name
    // ("UIO0201500"); `title` what OName gives when the record has no name.
    OrvoObjectUIOBase(const QString& code, const QString& className, const QString& title,
                      PropertiesConvention properties = PropertiesConvention());

    QString ClassName() const override { return className_; }

    QString GetGUID() override { return core_.GetGUID(); }
    QString OID() const override { return core_.OID(); }
    void SetOID(const QString& oid) override { core_.SetOID(oid); }
    QString OIDR() const override { return core_.OIDR(); }
    void SetOIDR(const QString& oidr) override { core_.SetOIDR(oidr); }
    QString OName() const override { return core_.OName(); }
    QString OType() const override { return core_.OType(); }
    void SetOType(const QString& type) override { core_.SetOType(type); }
    QString Preview() const override { return core_.Preview(); }
    void SetPreview(const QString& preview) override { core_.SetPreview(preview); }
    RecordsetPtr RsFields() const override { return core_.RsFields(); }

    ValueResult Properties(const QString& name, const QString& parameters) override;
    ValueResult Methods(const QString& name, const ValueArray& parameters) override;

    ResultRecord Read() override { return core_.Read(); }
    ResultRecord Save(const Value& rs2 = Value(), const Value& rs3 = Value()) override {
        return core_.Save(rs2, rs3);
    }

    OrvoObjectUIPtr UI() const override { return core_.UI(); }
    void SetUI(const OrvoObjectUIPtr& ui) override { core_.SetUI(ui); }
    BusinessObjectPtr BO() const override { return core_.BO(); }
    void CancelUpdate() override { core_.CancelUpdate(); }

    OrvoObjectUIOCore& Core() { return core_; }
    const OrvoObjectUIOCore& Core() const { return core_; }
    const PropertiesConvention& PropertiesRules() const { return properties_; }

protected:
    // A name the class serves itself (path 3 of the convention), or nothing to let the
    // convention handle it.
    virtual std::optional<ValueResult> OwnProperty(const QString& name, const QString& parameters);

private:
    QString className_;
    OrvoObjectUIOCore core_;
    PropertiesConvention properties_;
};

} // namespace orvo
