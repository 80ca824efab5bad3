#include "frame/orvo_object_ui_base.h"

#include "frame/object_registry.h"
#include "frame/orvo_form.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/orvo_shell_service.h"

namespace orvo {

OrvoObjectUIBase::OrvoObjectUIBase(const QString& code, const QString& className,
                                   const QString& title)
    : className_(className), core_(code, title) {}

MenuItems OrvoObjectUIBase::GetMenu(const QString&, const QString&, const QString&) {
    return {};
}

ClickResult OrvoObjectUIBase::ClickMenu(const QString&, const QString&, const QString&,
                                        const QString&) {
    return {};
}

bool OrvoObjectUIBase::DragOK(const QString&) {
    return false;
}

bool OrvoObjectUIBase::DropOK(const QString&, const QString&) {
    return false;
}

OrvoObjectUIOPtr OrvoObjectUIBase::NewDataObject(const QString& oid) {
    const ObjectRegistry& registry = ObjectRegistry::Component();
    if (oid.size() >= 8 && registry.HasDataObject(oid))
        return registry.MakeDataObject(oid);
    return registry.MakeDataObject(core_.Code());
}

OrvoObjectUIOPtr OrvoObjectUIBase::GetOrvoObject(const QString& oid) {
    OrvoObjectUIOPtr uio = NewDataObject(oid);
    if (!uio)
        return nullptr;
    uio->SetUI(shared_from_this());
    uio->SetOIDR(oid);
    if (!uio->Read().ok())
        return nullptr;
    if (const RecordsetPtr rs = uio->RsFields())
        rs->SetModifiedOnlyTransfer(true);
    return uio;
}

bool OrvoObjectUIBase::AddToDeskTopOrvoObject(const QString& oid) {
    const OrvoObjectUIOPtr uio = GetOrvoObject(oid);
    if (!uio)
        return false;
    const ValueResult r = uio->Properties(QStringLiteral("GetObjectForm"), QStringLiteral(";"));
    const auto form = std::dynamic_pointer_cast<OrvoForm>(r.Value.toObject());
    if (!r.ok() || !form)
        return false;
    const OrvoServicesPtr services = Services();
    const OrvoDeskTopServicePtr desktop = services ? services->DeskTopService() : nullptr;
    if (!desktop)
        return false;
    desktop->AddForm(form);
    return true;
}

void OrvoObjectUIBase::SetOrvoS(const OrvoServicesPtr& services) {
    services_ = services;
    orvo::SetOrvoS(services);
}

OrvoServicesPtr OrvoObjectUIBase::Services() const {
    return services_ ? services_ : OrvoS();
}

ClickResult OrvoObjectUIBase::NarrowBySelection(const QString& oid,
                                                const std::function<RecordsetPtr()>& list) {
    ClickResult result;
    const OrvoServicesPtr services = OrvoS();
    const OrvoShellServicePtr shell = services ? services->ShellService() : nullptr;
    if (!shell)
        return result;
    const ValueResult answer = shell->Methods(QStringLiteral("SelectionDialog"), {Value(oid)});
    const QString criteria = answer.Code == 0 ? answer.Value.toString() : QString();
    if (criteria.isEmpty())
        return result;
    const RecordsetPtr rows = list ? list() : nullptr;
    result.Action = ClickResult::NarrowList;
    result.Payload =
        Value(ValueArray{rows ? Value(rows) : Value(),
                         Value(QStringLiteral("'','") + criteria + QStringLiteral("'"))});
    return result;
}

} // namespace orvo
