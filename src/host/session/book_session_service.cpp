#include "host/session/book_session_service.h"
