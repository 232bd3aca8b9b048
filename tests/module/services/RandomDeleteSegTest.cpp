// Random sequences of deletions on random trees, held against a tree that knows its wells and
// segments by name and so has no index to keep right.

#include "TKVltSearchModule18.h"

#include "module/services/MemoryNetwork.h"
#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <random>

namespace module_tests {
namespace {

using Ints = std::vector<int>;

/// A tree by names. The numbers are those of the names, never places.
struct NamedTree {
    struct Link {
        int start;
        int end;
    };

    void remove(int seg) {
        const Link gone = links.at(seg);
        Ints& siblings = children[gone.start];
        siblings.erase(std::find(siblings.begin(), siblings.end(), seg));
        for (const int child : children[gone.end]) {
            links.at(child).start = gone.start;
            siblings.push_back(child);
        }
        children.erase(gone.end);
        links.erase(seg);
        drop(wells, gone.end);
        drop(segs, seg);
        drop(pathWells, gone.end);
        drop(pathSegs, seg);
    }

    Ints wells; ///< in the order of the network
    Ints segs;  ///< in the order of the network
    std::map<int, Link> links;
    std::map<int, Ints> children; ///< segments of each well, in order
    Ints pathWells;
    Ints pathSegs;
    int root = 0;

private:
    static void drop(Ints& list, int name) {
        list.erase(std::remove(list.begin(), list.end(), name), list.end());
    }
};

class RandomDeleteSegTest : public DrawingTest {
protected:
    explicit RandomDeleteSegTest() : random(20240611) {}

    int upTo(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    /// A tree whose wells and segments stand in any order, the root anywhere among them.
    void grow(int wells) {
        Ints places(static_cast<std::size_t>(wells));
        std::iota(places.begin(), places.end(), 0);
        std::shuffle(places.begin(), places.end(), random);
        std::vector<std::pair<int, int>> segs;
        for (int i = 1; i < wells; ++i) {
            const auto parent = static_cast<std::size_t>(upTo(i));
            segs.emplace_back(places[parent], places[static_cast<std::size_t>(i)]);
        }
        std::shuffle(segs.begin(), segs.end(), random);
        fillNetwork(network, wells, segs);
        network.rootWell = places[0];
        tree = {};
        tree.root = places[0];
        for (int i = 0; i < wells; ++i) {
            tree.wells.push_back(i);
        }
        for (int i = 0; i < wells - 1; ++i) {
            const auto [start, end] = segs[static_cast<std::size_t>(i)];
            tree.segs.push_back(i);
            tree.links[i] = {start, end};
            tree.children[start].push_back(i);
        }
        choosePath(upTo(wells));
    }

    void choosePath(int well) {
        tree.pathWells.push_back(well);
        while (well != tree.root) {
            const auto in = std::find_if(tree.links.begin(), tree.links.end(),
                                         [&](const auto& link) { return link.second.end == well; });
            tree.pathSegs.push_back(in->first);
            well = in->second.start;
            tree.pathWells.push_back(well);
        }
        for (const int name : tree.pathWells) {
            network.pathWells.Add(name); // no well has moved yet, so names are places
        }
        for (const int name : tree.pathSegs) {
            network.pathSegs.Add(name);
        }
    }

    /// Everything that an index in the network shows to, against the names.
    void compare() {
        ASSERT_EQ(network.wells.GetSize(), static_cast<INT_PTR>(tree.wells.size()));
        ASSERT_EQ(network.segs.GetSize(), static_cast<INT_PTR>(tree.segs.size()));
        ASSERT_EQ(network.wells.GetSize(), network.segs.GetSize() + 1);
        EXPECT_EQ(nameOfWell(network.rootWell), wellName(tree.root));
        EXPECT_EQ(namesOfPath(network.pathWells, &RandomDeleteSegTest::nameOfWell),
                  names(tree.pathWells, wellName));
        EXPECT_EQ(namesOfPath(network.pathSegs, &RandomDeleteSegTest::nameOfSeg),
                  names(tree.pathSegs, segName));
        for (std::size_t i = 0; i < tree.segs.size(); ++i) {
            compareSeg(static_cast<int>(i), tree.segs[i]);
        }
        for (std::size_t i = 0; i < tree.wells.size(); ++i) {
            compareWell(static_cast<int>(i), tree.wells[i]);
        }
    }

    void compareSeg(int place, int name) {
        SCOPED_TRACE("segment " + std::to_string(place));
        const GravitySeg& seg = network.segs.GetAt(place);
        const NamedTree::Link& link = tree.links.at(name);
        EXPECT_EQ(nameOfSeg(place), segName(name));
        EXPECT_EQ(nameOfWell(seg.startWell), wellName(link.start));
        EXPECT_EQ(nameOfWell(seg.endWell), wellName(link.end));
        EXPECT_EQ(seg.startEntity, wellName(link.start));
        EXPECT_EQ(seg.endEntity, wellName(link.end));
        EXPECT_TRUE(samePoint(seg.startPoint, wellPlace(link.start), 0.0));
        EXPECT_TRUE(samePoint(seg.endPoint, wellPlace(link.end), 0.0));
    }

    void compareWell(int place, int name) {
        SCOPED_TRACE("well " + std::to_string(place));
        const Well& well = network.wells.GetAt(place);
        EXPECT_EQ(nameOfWell(place), wellName(name));
        EXPECT_TRUE(samePoint(well.nodePoint, wellPlace(name), 0.0));
        EXPECT_EQ(namesOfPath(well.outSegs, &RandomDeleteSegTest::nameOfSeg),
                  names(tree.children[name], segName));
        if (name == tree.root) {
            EXPECT_EQ(well.inSeg, -1);
        } else {
            const auto seg = static_cast<std::size_t>(well.inSeg);
            ASSERT_LT(seg, tree.segs.size());
            EXPECT_EQ(tree.links.at(tree.segs[seg]).end, name);
        }
    }

    AcDbObjectId nameOfWell(int place) const { return network.wells.GetAt(place).nodeEntity; }
    AcDbObjectId nameOfSeg(int place) const { return network.segs.GetAt(place).pipeIds.at(0); }

    Ids namesOfPath(const CArray<int, int>& places,
                    AcDbObjectId (RandomDeleteSegTest::*nameOf)(int) const) const {
        Ids list;
        for (const int place : intsOf(places)) {
            list.push_back((this->*nameOf)(place));
        }
        return list;
    }

    static Ids names(const Ints& numbers, AcDbObjectId (*name)(int)) {
        Ids list;
        for (const int number : numbers) {
            list.push_back(name(number));
        }
        return list;
    }

    std::mt19937 random;
    GravitySearchObject network;
    NamedTree tree;
};

TEST_F(RandomDeleteSegTest, EveryIndexKeepsPointingAtWhatItPointedAt) {
    int deletions = 0;
    for (int round = 0; round < 150 && !HasFailure(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        network.wells.RemoveAll();
        network.segs.RemoveAll();
        network.pathWells.RemoveAll();
        network.pathSegs.RemoveAll();
        grow(2 + upTo(30));
        compare();
        while (!tree.segs.empty() && !HasFailure()) {
            const int place = upTo(static_cast<int>(tree.segs.size()));
            SCOPED_TRACE("deleting " + std::to_string(place));
            GravitySearchObject* object = &network;
            ASSERT_EQ(DeleteSeg(object, place), 1);
            tree.remove(tree.segs[static_cast<std::size_t>(place)]);
            compare();
            ++deletions;
        }
    }
    EXPECT_GT(deletions, 1500);
}

} // namespace
} // namespace module_tests
