// The common base of everything that travels inside a Value as an object: data
// objects, navigators, forms handed back in a ClickResult. It only gives a virtual
// destructor and a class name, so a Value can hold any of them without knowing them.
#pragma once

#include <QString>
#include <memory>

namespace orvo {

class ObjectBase {
public:
    virtual ~ObjectBase() = default;
    // The system's name of the class ("UIO0201500", "frmBROper"), for scripts and messages.
    virtual QString ClassName() const = 0;
};

using ObjectPtr = std::shared_ptr<ObjectBase>;

} // namespace orvo
