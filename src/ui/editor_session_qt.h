#pragma once

// The editor session, as the windows include it; the session's header can be included from
// Qt code directly as well.
#include "session/editor_session.h"
