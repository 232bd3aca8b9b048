// What a search finds in a town is what the town was laid as.

#include "EmbeddedHost.h"
#include "Siblings.h"
#include "siblings/TemporaryFolder.h"
#include "TKVltSearchModule18.h"
#include "town/Town.h"
#include "town/TownFiles.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <stdexcept>

namespace benchmark_town {
namespace {

/// A town as a drawing of the process, written to a file and read back.
class DrawnTown {
public:
    explicit DrawnTown(const Town& town) : town_(town) {
        siblings::setSystemPath(TKVLT_EXAMPLES_DIR "/settings");
        const sibling_tests::TemporaryFolder folder;
        const std::string path = folder.text() + "/town.dxf";
        writeDrawing(town, path);
        std::string error;
        document_ = host::openDocument(path, error);
        if (document_ == nullptr) {
            throw std::runtime_error(error);
        }
    }
    ~DrawnTown() {
        host::closeDocument(document_);
        siblings::setSystemPath("");
    }
    DrawnTown(const DrawnTown&) = delete;
    DrawnTown& operator=(const DrawnTown&) = delete;

    /// The network of a system; null when the search says no.
    std::unique_ptr<SearchObject> search(const TownSystem& system) const {
        AcDbObjectId start = entity(system.startsAtPipe ? pipeHandle(town_, system.start)
                                                        : wellHandle(system.start));
        AcDbObjectId end;
        SearchObject* object = nullptr;
        const int result = GetSearchInformation(object, start, end,
                                                AcGePoint3d(system.point.x, system.point.y, 0));
        std::unique_ptr<SearchObject> owned(object);
        return result == 1 ? std::move(owned) : nullptr;
    }

    /// The handle of an entity as the town spells it.
    static std::string handleOf(const AcDbObjectId& id) {
        ACHAR text[17];
        id.handle().getIntoAsciiBuffer(text);
        std::string handle;
        for (const ACHAR* digit = text; *digit != 0; ++digit) {
            handle += static_cast<char>(*digit);
        }
        return handle;
    }

private:
    AcDbObjectId entity(const std::string& handle) const {
        AcDbObjectId id;
        if (document_->database()->getAcDbObjectId(
                id, false, AcDbHandle(std::stoull(handle, nullptr, 16))) != Acad::eOk) {
            throw std::runtime_error("no entity " + handle);
        }
        return id;
    }

    const Town& town_;
    AcApDocument* document_ = nullptr;
};

using Parents = std::map<std::string, std::string>;

/// The root of the tree of a well.
std::size_t rootOf(const Town& town, std::size_t well) {
    while (town.wells[well].parent != TownWell::kNone) {
        well = static_cast<std::size_t>(town.wells[well].parent);
    }
    return well;
}

/// Each well but the root of the tree that a search walks, with the one it drains to.
Parents parentsOf(const Town& town, const TownSystem& system) {
    Parents parents;
    for (std::size_t i = 0; i < town.wells.size(); ++i) {
        if (i != system.start && rootOf(town, i) == system.start) {
            parents[wellHandle(i)] = wellHandle(static_cast<std::size_t>(town.wells[i].parent));
        }
    }
    return parents;
}

/// The same as a search found it.
Parents parentsOf(GravitySearchObject& network) {
    Parents parents;
    for (int i = 0; i < static_cast<int>(network.segs.GetSize()); ++i) {
        const GravitySeg& seg = network.segs.ElementAt(i);
        parents[DrawnTown::handleOf(seg.endEntity)] = DrawnTown::handleOf(seg.startEntity);
    }
    return parents;
}

void expectTrees(const Town& town) {
    const DrawnTown drawn(town);
    for (const TownSystem& system : town.systems) {
        const std::unique_ptr<SearchObject> object = drawn.search(system);
        auto* network = dynamic_cast<GravitySearchObject*>(object.get());
        ASSERT_NE(network, nullptr);
        EXPECT_EQ(static_cast<std::size_t>(network->wells.GetSize()), system.nodes);
        EXPECT_EQ(static_cast<std::size_t>(network->segs.GetSize()), system.segments);
        EXPECT_EQ(parentsOf(*network), parentsOf(town, system));
    }
}

TEST(TownNetworkTest, ASearchFindsTheTreeOfTheSewers) {
    expectTrees(laySewers(1000, false, 18));
}

TEST(TownNetworkTest, TwoSystemsSideBySideStayTwo) {
    expectTrees(laySewers(1000, true, 18));
}

/// Of five networks of one system the one that begins at the start.
TEST(TownNetworkTest, ASearchFindsOneOfFiveDistricts) {
    expectTrees(layDistricts(1000, 18));
    for (std::uint64_t seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        expectTrees(layDistricts(500, seed));
    }
}

TEST(TownNetworkTest, OtherSeedsAreFoundAsWell) {
    for (std::uint64_t seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        expectTrees(laySewers(250, seed % 2 == 0, seed));
    }
}

/// Each street is cut where its house connection leaves, and the gap in it is bridged: three
/// segments a street, on which all pipes, valves and meters are found.
TEST(TownNetworkTest, ASearchFindsAllOfTheWaterMain) {
    const Town town = layWaterMain(1000, 18);
    const DrawnTown drawn(town);
    const std::unique_ptr<SearchObject> object = drawn.search(town.systems.front());
    auto* network = dynamic_cast<PressureSearchObject*>(object.get());
    ASSERT_NE(network, nullptr);
    EXPECT_EQ(network->segs.GetSize(), 1500);
    std::set<std::string> pipes;
    std::set<std::string> fittings;
    for (int i = 0; i < static_cast<int>(network->segs.GetSize()); ++i) {
        const PressureSeg& seg = network->segs.ElementAt(i);
        for (int k = 0; k < seg.pipeIds.length(); ++k) {
            pipes.insert(DrawnTown::handleOf(seg.pipeIds.at(k)));
        }
        for (const AcDbObjectIdArray* ids : {&seg.valveIds, &seg.meterIds}) {
            for (int k = 0; k < ids->length(); ++k) {
                EXPECT_TRUE(fittings.insert(DrawnTown::handleOf(ids->at(k))).second);
            }
        }
    }
    EXPECT_EQ(pipes.size(), town.pipes.size());
    EXPECT_EQ(fittings.size(), town.wells.size());
}

void expectNothing(const Town& town) {
    const DrawnTown drawn(town);
    EXPECT_EQ(drawn.search(town.systems.front()), nullptr);
}

TEST(TownNetworkTest, InAGridNothingIsFound) {
    for (const bool corner : {false, true}) {
        expectNothing(layGrid(GridKind::kShallow, 12, corner));
        expectNothing(layGrid(GridKind::kArcs, 12, corner));
    }
    expectNothing(layGrid(GridKind::kSquare, 12, false));
}

} // namespace
} // namespace benchmark_town
