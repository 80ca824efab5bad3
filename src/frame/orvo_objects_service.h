// OrvoObjectsService is the host's object factory: it makes data objects and
// navigators of any registered kind (this component's and its siblings'), shows objects
// the component does not own, and shows help pages.
#pragma once

#include "core/results.h"
#include "core/value.h"

#include <QString>
#include <memory>

namespace orvo {

class OrvoObjectUI;
class OrvoObjectUIO;

class OrvoObjectsService {
public:
    virtual ~OrvoObjectsService() = default;

    // A data object of the kind: read when the argument is a stored reference (nine
    // characters or more), blank when it is a bare code; null for an unknown kind or a
    // record that cannot be read.
    virtual std::shared_ptr<OrvoObjectUIO> GetObjectUIO(const QString& codeOrOidr) = 0;
    // The navigator of a code; null when unknown.
    virtual std::shared_ptr<OrvoObjectUI> GetObjectUI(const QString& code) = 0;
    // Shows an object that this component does not own, by its reference.
    virtual void ShowObject(const QString& oidr) = 0;
    // Named operations; "ShowHelp" takes a title and a path that begins "help\" and ends
    // ".htm".
    virtual ValueResult Methods(const QString& name, const ValueArray& parameters) = 0;
};

using OrvoObjectsServicePtr = std::shared_ptr<OrvoObjectsService>;

} // namespace orvo
