#pragma once

#include "platform.h"

namespace module_tests {

/// Another tolerance of the host, for as long as this lives.
class HostTolerance {
public:
    explicit HostTolerance(double equalPoint) { AcGeContext::gTol.setEqualPoint(equalPoint); }
    HostTolerance(const HostTolerance&) = delete;
    HostTolerance& operator=(const HostTolerance&) = delete;
    ~HostTolerance() { AcGeContext::gTol = former_; }

private:
    AcGeTol former_ = AcGeContext::gTol;
};

} // namespace module_tests
