#pragma once

// The only door of the module to the platform. Against another host this header and the include
// path are what changes; nothing else in the module names where the platform comes from.

#include "EmbeddedHost.h"
#include "Siblings.h"
