#include "measure/Search.h"

#include "measure/Operation.h"

#include <cstdlib>
#include <stdexcept>

namespace benchmark_measure {

namespace {

std::uint64_t handleOf(const AcDbObjectId& id) {
    const AcDbHandle handle = id.handle();
    return (static_cast<std::uint64_t>(handle.high()) << 32U) | handle.low();
}

} // namespace

Search::Search(const OpenSpecimen& specimen, const SystemTruth& system, bool plain)
    : specimen_(specimen), system_(system), plain_(plain), start_(specimen.entity(system.start)) {}

Search::~Search() {
    clear();
}

void Search::clear() {
    delete object_;
    object_ = nullptr;
    ::setenv("TKVLT_CANDIDATES", plain_ ? "plain" : "", 1);
}

void Search::run() {
    AcDbObjectId end;
    result_ = GetSearchInformation(object_, start_, end, AcGePoint3d(system_.x, system_.y, 0.0));
}

void Search::check(bool wholly) const {
    require((result_ == 0) == system_.refused, "the search did not end as it must");
    if (system_.refused) {
        return;
    }
    if (system_.pressure) {
        checkPressure();
    } else {
        checkGravity(wholly);
    }
}

void Search::checkGravity(bool wholly) const {
    auto* network = dynamic_cast<GravitySearchObject*>(object_);
    if (network == nullptr) {
        throw std::runtime_error("no gravity network came back");
    }
    require(static_cast<std::size_t>(network->wells.GetSize()) == system_.nodes &&
                static_cast<std::size_t>(network->segs.GetSize()) == system_.segments,
            "the gravity network has another size than the town");
    const auto& parents = specimen_.truth().parents;
    if (!wholly || parents.empty()) {
        return;
    }
    for (int i = 1; i < static_cast<int>(network->wells.GetSize()); ++i) {
        Well& well = network->wells.ElementAt(i);
        const GravitySeg& seg = network->segs.ElementAt(well.inSeg);
        require(parents.at(handleOf(well.nodeEntity)) == handleOf(seg.startEntity),
                "a well hangs on another one than in the town");
    }
}

void Search::checkPressure() const {
    auto* network = dynamic_cast<PressureSearchObject*>(object_);
    if (network == nullptr) {
        throw std::runtime_error("no pressure network came back");
    }
    require(static_cast<std::size_t>(network->segs.GetSize()) == system_.segments,
            "the pressure network has another count of segments than the town");
    if (system_.valves + system_.meters == 0) {
        return;
    }
    std::size_t valves = 0;
    std::size_t meters = 0;
    for (int i = 0; i < static_cast<int>(network->segs.GetSize()); ++i) {
        valves += static_cast<std::size_t>(network->segs.ElementAt(i).valveIds.length());
        meters += static_cast<std::size_t>(network->segs.ElementAt(i).meterIds.length());
    }
    require(valves == system_.valves && meters == system_.meters,
            "the pressure network has other counts of valves and meters than the town");
}

} // namespace benchmark_measure
