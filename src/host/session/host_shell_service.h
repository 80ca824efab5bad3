// HostShellService holds the host's named shell operations. ShowOrvoObjectModal takes
// "Code;GroupID;ClickedParameters", makes the data object of the code, gets its form
// through Properties("GetObjectForm", ...), shows it modally and returns the object's
// recordset. The late-bound commands of the managed side are connected as callbacks by
// the face that has them; without one they are refused clearly.
#pragma once

#include "frame/orvo_objects_service.h"
#include "frame/orvo_shell_service.h"

#include <QHash>
#include <functional>

namespace orvo::host {

class HostShellService : public OrvoShellService {
public:
    explicit HostShellService(OrvoObjectsServicePtr objects) : objects_(std::move(objects)) {}

    ValueResult Methods(const QString& name, const ValueArray& parameters) override;

    // A named operation served by the face: string parameters in, a string value out.
    using Callback = std::function<ValueResult(const ValueArray& parameters)>;
    void Connect(const QString& name, Callback callback) {
        callbacks_.insert(name, std::move(callback));
    }

private:
    ValueResult showOrvoObjectModal(const QString& text);

    OrvoObjectsServicePtr objects_;
    QHash<QString, Callback> callbacks_;
};

} // namespace orvo::host
