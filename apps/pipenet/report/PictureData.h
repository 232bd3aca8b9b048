#pragma once

#include "CheckReport.h"
#include "Drawing.h"
#include "JsonText.h"
#include "PlanCurve.h"
#include "report/ReportIndex.h"

namespace pipenet {

/// The drawn pipes, wells, tanks and runs of a report.
struct PictureData {
    Json pipes = Json::array();
    Json nodes = Json::array();
    Json runs = Json::array();
};

/// Reads what the picture shows. Pipes, wells and tanks come in drawing order.
PictureData pictureData(const Drawing& drawing, const CheckReport& report,
                        const ReportIndex& index);

/// The place in plan as [x, y]; null when it is not finite, or too far away to be drawn.
Json placeJson(const PlanPoint& place);

} // namespace pipenet
