#include "frame/orvo_services.h"

namespace orvo {

OrvoConstantsServicePtr OrvoServices::Constants() const {
    return session_ ? session_->Constants() : nullptr;
}

} // namespace orvo
