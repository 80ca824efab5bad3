// OrvoSessionService is the host's session: its constants and the user working in it.
#pragma once

#include "frame/orvo_constants_service.h"

#include <QString>
#include <memory>

namespace orvo {

// The record of the user of the session.
struct SessionUser {
    qint32 ID = 0;
    QString Code;
    QString Name;
    // The user's own preferences as the host keeps them.
    QString UserPref;
};

class OrvoSessionService {
public:
    virtual ~OrvoSessionService() = default;
    virtual OrvoConstantsServicePtr Constants() = 0;
    virtual SessionUser CurrentUser() = 0;
};

using OrvoSessionServicePtr = std::shared_ptr<OrvoSessionService>;

} // namespace orvo
