#pragma once

#include "svg/Page.h"
#include "svg/Scene.h"

namespace pipenet {

/// Where the plan lies on the page and how large it is. The y axis of the drawing points upwards.
class Viewport {
public:
    /// Frames the network. The scale follows the typical distance between neighbouring nodes, so
    /// that labels have room on a small network and on one of thousands of wells.
    explicit Viewport(const Scene& scene);

    PagePoint toPage(const PlanPoint& point) const;
    /// Pixels of a drawing unit.
    double scale() const { return scale_; }
    /// How much larger than on a small page title, legend and marks are, at least 1.
    double furniture() const { return furniture_; }
    /// The part of the page that shows the plan.
    const PageBox& area() const { return area_; }

private:
    PlanPoint lowerLeft_;
    double scale_ = 1.0;
    double furniture_ = 1.0;
    PageBox area_;
};

} // namespace pipenet
