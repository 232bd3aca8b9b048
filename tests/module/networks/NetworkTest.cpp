#include "module/networks/NetworkTest.h"

namespace module_tests {

namespace {

constexpr double kTolerance = 1e-9;

AcGePoint3d at(Place place) {
    return {place.x, place.y, 0.0};
}

} // namespace

GravitySearchObject* NetworkTest::search(const std::string& start, const std::string& end,
                                         Place pick) {
    found.reset();
    drawing.openDxf(map.text());
    AcDbObjectId startId = id(start);
    AcDbObjectId endId = end.empty() ? AcDbObjectId() : id(end);
    SearchObject* object = nullptr;
    const int result = GetSearchInformation(object, startId, endId, at(pick));
    found.reset(object);
    EXPECT_EQ(result, object != nullptr ? 1 : 0) << "a gravity search succeeds with an object";
    if (object == nullptr) {
        return nullptr;
    }
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "GravitySearchObject");
    return static_cast<GravitySearchObject*>(object);
}

const GravitySearchObject& NetworkTest::network() const {
    return static_cast<const GravitySearchObject&>(*found);
}

AcDbObjectId NetworkTest::id(const std::string& name) const {
    return drawing.byHandle(host_text::fromUtf8(map.handle(name)).c_str());
}

std::string NetworkTest::nameOf(AcDbObjectId entity) const {
    ACHAR digits[17]; // sixteen and the end mark
    entity.handle().getIntoAsciiBuffer(digits);
    return map.name(host_text::toUtf8(digits));
}

std::vector<std::string> NetworkTest::namesOf(const AcArray<AcDbObjectId>& entities) const {
    std::vector<std::string> names;
    for (int i = 0; i < entities.length(); ++i) {
        names.push_back(nameOf(entities.at(i)));
    }
    return names;
}

void NetworkTest::expectNodes(const std::vector<ExpectedNode>& expected) const {
    ASSERT_NE(found, nullptr);
    ASSERT_EQ(network().wells.GetSize(), static_cast<INT_PTR>(expected.size()));
    EXPECT_EQ(network().rootWell, 0);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE("node " + std::to_string(i));
        const ExpectedNode& want = expected[i];
        const Well& node = network().wells.GetAt(static_cast<INT_PTR>(i));
        const bool isTank = want.name[0] == 'T';
        EXPECT_EQ(nameOf(node.nodeEntity), want.name);
        EXPECT_EQ(node.isWell, isTank ? 0 : 1);
        EXPECT_EQ(utf8(node.number).empty(), isTank);
        EXPECT_TRUE(samePoint(node.nodePoint, at(want.at), kTolerance));
        EXPECT_NEAR(node.nodeRadius, want.radius, kTolerance);
        EXPECT_EQ(node.inSeg, want.inSeg);
        EXPECT_EQ(intsOf(node.outSegs), want.outSegs);
        EXPECT_EQ(namesOf(node.mergedEntities), want.merged);
    }
}

void NetworkTest::expectSegs(const std::vector<ExpectedSeg>& expected) const {
    ASSERT_NE(found, nullptr);
    ASSERT_EQ(network().segs.GetSize(), static_cast<INT_PTR>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE("segment " + std::to_string(i));
        const ExpectedSeg& want = expected[i];
        const GravitySeg& seg = network().segs.GetAt(static_cast<INT_PTR>(i));
        EXPECT_EQ(namesOf(seg.pipeIds), want.pipes);
        EXPECT_EQ(seg.startWell, want.startWell);
        EXPECT_EQ(seg.endWell, want.endWell);
        EXPECT_EQ(nameOf(seg.startEntity), want.startEntity);
        EXPECT_EQ(nameOf(seg.endEntity), want.endEntity);
        EXPECT_TRUE(samePoint(seg.startPoint, at(want.start), kTolerance));
        EXPECT_TRUE(samePoint(seg.endPoint, at(want.end), kTolerance));
        EXPECT_NEAR(seg.length, want.length, kTolerance);
    }
}

void NetworkTest::expectPath(const std::vector<int>& wells, const std::vector<int>& segs) const {
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(intsOf(network().pathWells), wells);
    EXPECT_EQ(intsOf(network().pathSegs), segs);
}

void NetworkTest::expectLabel(int seg, Place place, Place direction) const {
    SCOPED_TRACE("label of segment " + std::to_string(seg));
    ASSERT_NE(found, nullptr);
    const GravitySeg& labelled = network().segs.GetAt(seg);
    EXPECT_TRUE(samePoint(labelled.annotatePoint, at(place), kTolerance));
    EXPECT_TRUE(sameVector(labelled.annotateVector, {direction.x, direction.y, 0.0}, kTolerance));
}

void NetworkTest::expectHeights(int seg, double low, double high) const {
    SCOPED_TRACE("heights of segment " + std::to_string(seg));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(network().segs.GetAt(seg).startElevation, low);
    EXPECT_EQ(network().segs.GetAt(seg).endElevation, high);
}

} // namespace module_tests
