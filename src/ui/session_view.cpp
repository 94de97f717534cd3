#include "ui/session_view.h"
