#pragma once

#include "dxf/SaveContext.h"

namespace host_dxf {

/// Makes the variables of the header follow the drawing: the current layer when another one was
/// made current, the next handle when new ones were given out. New variables are gathered as an
/// addition to the section.
void updateHeader(SaveContext& context);

} // namespace host_dxf
