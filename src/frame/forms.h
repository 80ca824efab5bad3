// Forms makes the component's windows by name. Logic never includes widgets: a data
// object or a Catalogue routine that needs a window asks this service, the desktop
// registers the real ones, tests register their own, and a face without windows has
// none, so that CreateForm gives null and the caller refuses clearly.
#pragma once

#include "frame/orvo_form.h"

#include <QString>
#include <memory>

namespace orvo {

class Forms {
public:
    virtual ~Forms() = default;
    // A new form of that name, or null when no form of that name is available.
    virtual OrvoFormPtr CreateForm(const QString& name) = 0;
};

using FormsPtr = std::shared_ptr<Forms>;

} // namespace orvo
