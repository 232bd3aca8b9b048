#pragma once

/// Type and result codes of the editor's functions; they are those of the result buffers.
#include "database/ResultCodes.h"
