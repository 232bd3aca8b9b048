#include "NetworkSearch.h"

#include "NearestEntity.h"

namespace pipenet {

SearchRequest searchRequest(const Drawing& drawing, const Options& options) {
    SearchRequest request;
    request.start =
        options.pick ? nearestEntity(drawing, *options.pick) : drawing.entity(options.start);
    if (!options.end.isNull()) {
        request.end = drawing.entity(options.end);
    }
    request.point = options.point.value_or(options.pick.value_or(AcGePoint3d()));
    return request;
}

SearchOutcome searchNetwork(const SearchRequest& request) {
    SearchOutcome outcome;
    AcDbObjectId start = request.start;
    AcDbObjectId end = request.end;
    SearchObject* object = nullptr;
    try {
        outcome.result = GetSearchInformation(object, start, end, request.point);
    } catch (const CInvalidArgException&) {
        // A network that the module cannot walk through; the object is left with the caller.
        delete object;
        return outcome;
    } catch (...) {
        delete object;
        throw;
    }
    outcome.object.reset(object);
    return outcome;
}

GravitySearchObject* gravityNetwork(const SearchOutcome& outcome) {
    return dynamic_cast<GravitySearchObject*>(outcome.object.get());
}

PressureSearchObject* pressureNetwork(const SearchOutcome& outcome) {
    return dynamic_cast<PressureSearchObject*>(outcome.object.get());
}

} // namespace pipenet
