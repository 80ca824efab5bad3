// BookSessionService is the session of one user working in one book: its constants and
// the user's record (ID, Code, Name, UserPref).
#pragma once

#include "frame/orvo_session_service.h"

namespace orvo::host {

class BookSessionService : public OrvoSessionService {
public:
    BookSessionService(OrvoConstantsServicePtr constants, SessionUser user)
        : constants_(std::move(constants)), user_(std::move(user)) {}

    OrvoConstantsServicePtr Constants() override { return constants_; }
    SessionUser CurrentUser() override { return user_; }

private:
    OrvoConstantsServicePtr constants_;
    SessionUser user_;
};

} // namespace orvo::host
