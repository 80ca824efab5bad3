// HostObjectsService is the host's object factory over the component's ObjectRegistry:
// it makes navigators and data objects by code (read when given a stored reference),
// and passes objects the component does not own, and help pages, to whatever face is
// showing the session (the desktop opens them; the command line reports them).
#pragma once

#include "frame/business_object.h"
#include "frame/orvo_objects_service.h"

#include <QStringList>
#include <functional>
#include <memory>

namespace orvo {
class OrvoServices;
}

namespace orvo::host {

class HostObjectsService : public OrvoObjectsService {
public:
    HostObjectsService(BusinessObjectPtr bo, std::weak_ptr<OrvoServices> services)
        : bo_(std::move(bo)), services_(std::move(services)) {}

    std::shared_ptr<OrvoObjectUIO> GetObjectUIO(const QString& codeOrOidr) override;
    std::shared_ptr<OrvoObjectUI> GetObjectUI(const QString& code) override;
    void ShowObject(const QString& oidr) override;
    ValueResult Methods(const QString& name, const ValueArray& parameters) override;

    // What the face does to show a foreign object and a help page; without them the
    // requests are only recorded.
    std::function<void(const QString& oidr)> OnShowObject;
    std::function<void(const QString& title, const QString& path)> OnShowHelp;
    // Requests made so far ("ShowObject O00001001", "ShowHelp <title> <path>").
    QStringList Requests;

private:
    BusinessObjectPtr bo_;
    std::weak_ptr<OrvoServices> services_;
};

} // namespace orvo::host
