// OrvoDeskTopService keeps forms that are not modal on the host's desktop, so that they
// outlive the call that opened them.
#pragma once

#include <memory>

namespace orvo {

class OrvoForm;

class OrvoDeskTopService {
public:
    virtual ~OrvoDeskTopService() = default;
    virtual void AddForm(const std::shared_ptr<OrvoForm>& form) = 0;
    virtual void RemoveForm(const std::shared_ptr<OrvoForm>& form) = 0;
};

using OrvoDeskTopServicePtr = std::shared_ptr<OrvoDeskTopService>;

} // namespace orvo
