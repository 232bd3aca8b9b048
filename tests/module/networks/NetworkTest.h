#pragma once

#include "module/networks/DxfMap.h"
#include "module/support/Compare.h"
#include "TKVltSearchModule18.h"

#include <memory>
#include <string>
#include <vector>

namespace module_tests {

/// A node as worked out by hand, entities by their names on the map.
struct ExpectedNode {
    std::string name;
    Place at;
    double radius;
    int inSeg;
    std::vector<int> outSegs;
    std::vector<std::string> merged = {};
};

struct ExpectedSeg {
    std::vector<std::string> pipes;
    int startWell;
    int endWell;
    std::string startEntity;
    std::string endEntity;
    Place start;
    Place end;
    double length;
};

/// A whole network on a drawing that is read from DXF text. In the maps drawn in comments `o` is a
/// round well, `#` a square one and `[ ]` a tank; pipes stop half a unit short of the centre of a
/// well of diameter 1.
class NetworkTest : public DrawingTest {
protected:
    /// Reads the map's drawing and searches from an entity. Null when the module says no.
    GravitySearchObject* search(const std::string& start, const std::string& end = "",
                                Place pick = {0.0, 0.0});
    AcDbObjectId id(const std::string& name) const;
    std::string nameOf(AcDbObjectId entity) const;
    std::vector<std::string> namesOf(const AcArray<AcDbObjectId>& entities) const;

    /// Compares what the last search found; tanks are those whose name begins with T.
    void expectNodes(const std::vector<ExpectedNode>& expected) const;
    void expectSegs(const std::vector<ExpectedSeg>& expected) const;
    void expectPath(const std::vector<int>& wells, const std::vector<int>& segs) const;
    void expectLabel(int seg, Place at, Place direction) const;
    void expectHeights(int seg, double low, double high) const;

    DxfMap map;
    std::unique_ptr<SearchObject> found; ///< what the last search gave

private:
    const GravitySearchObject& network() const;
};

} // namespace module_tests
