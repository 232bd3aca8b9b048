#pragma once

#include "CheckReport.h"
#include "Drawing.h"
#include "JsonText.h"

namespace pipenet {

/// What the page of a report draws and lists, as its script reads it:
///
///     {"drawing", "metresPerUnit",
///      "systems": [{"name", "flow", "flag", "pipes", "wells", "tanks", "networks", "length",
///                   "lengths": [{"diameter", "material", "runs", "length"}],
///                   "lowest": {"elevation", "handle", "at"} or null, "highest"}],
///      "networks": [{"index", "system", "root", "nodes", "runs", "length"}],
///      "pipes": [{"handle", "system", "network", "curve": [x, y, bulge, x, y, ... x, y]}],
///      "nodes": [{"handle", "kind", "number", "system", "network", "at", "radius", "box"}],
///      "runs": [{"system", "network", "pipes", "diameter", "material", "length",
///                "startElevation", "endElevation", "arrow": [x, y, angle] or null}],
///      "findings": [{"code", "severity", "system", "systemName", "handles", "at", "measured",
///                    "limit", "unit", "sentence", "network"}]}
///
/// Systems, networks and pipes are told by index, -1 for none. Places are [x, y], null where there
/// is none that can be drawn; pipes and nodes without one are left out.
Json reportData(const Drawing& drawing, const CheckReport& report);

} // namespace pipenet
