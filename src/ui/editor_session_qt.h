#pragma once

// The editor session for code that also includes Qt: the undo ring has a member named
// "slots", a word that Qt defines as a macro, so the session's header is read with that macro
// set aside. Include this before any other header that brings in app/editor_session.h.
#pragma push_macro("slots")
#undef slots
#include "app/editor_session.h"
#pragma pop_macro("slots")
