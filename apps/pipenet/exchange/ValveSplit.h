#pragma once

#include "exchange/ExchangeNetwork.h"

namespace pipenet {

/// Cuts each pipe where a valve well stands on it: the pipe up to the valve, the valve as a link of
/// its own between two nodes at its place, the pipe onward. A pipe that is itself a valve stays as
/// it is. The valves leave the fittings; what stays there points to the part that it stands on.
void splitAtValves(ExchangeNetwork& network);

} // namespace pipenet
