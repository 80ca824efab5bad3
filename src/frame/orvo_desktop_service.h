// OrvoDeskTopService keeps forms that are not modal on the host's desktop, so that they
// outlive the call that opened them, and hears when a form has stored an object, so that
// the host shows the object as stored (its row in the tree, the list that holds it).
#pragma once

#include <QString>
#include <memory>

namespace orvo {

class OrvoForm;

class OrvoDeskTopService {
public:
    virtual ~OrvoDeskTopService() = default;
    virtual void AddForm(const std::shared_ptr<OrvoForm>& form) = 0;
    virtual void RemoveForm(const std::shared_ptr<OrvoForm>& form) = 0;
    // The object `oidr` was stored (new or changed) under `parentOidr` (its group; may be
    // empty): lists that show either are read again. A host without lists ignores it.
    virtual void RefreshObject(const QString& oidr, const QString& parentOidr) {
        (void)oidr;
        (void)parentOidr;
    }
};

using OrvoDeskTopServicePtr = std::shared_ptr<OrvoDeskTopService>;

} // namespace orvo
