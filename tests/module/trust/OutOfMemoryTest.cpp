// Memory that runs out at any one request of a search or a service: the caller gets the exception,
// the drawing is the one that it was, and nothing stays open, locked or taken.

#include "FailingMemory.h"

#include "application/HostRecorder.h"
#include "dxf/SaveDxf.h"
#include "module/support/DrawingBuilder.h"
#include "TKVltSearchModule18.h"

#include <functional>
#include <memory>
#include <new>

namespace module_tests {
namespace {

class OutOfMemoryTest : public DrawingTest {
protected:
    OutOfMemoryTest() {
        const AcDbObjectId first = drawing.addWell({0, 0, 0}, {.number = L"W1"});
        well_ = first;
        drawing.addWell({20, 0, 0}, {.number = L"W2"});
        drawing.addWell({20.5, 0, 0}, {.number = L"W2A"});
        drawing.addWell({20, 20, 0}, {.number = L"W3", .square = true});
        drawing.addTank({38, -2, 0}, {42, 2, 0});
        sewer_ = drawing.addPipe({0.5, 0, 0}, {10, 0, 0},
                                 {.flow = L"SE", .startElevation = L"3", .endElevation = L"2"});
        drawing.addPipe({10.1, 0, 0}, {19.5, 0, 0}, {.flow = L"SE"});
        drawing.addArcPipe({20, 0.5, 0}, {20, 19.5, 0}, 0.25, {.flow = L"ES"});
        drawing.addPipe({21, 0, 0}, {38, 0, 0}, {.flow = L"SE", .endElevation = L"1"});
        main_ = drawing.addPipe({0, 50, 0}, {40, 50, 0}, {.system = kSupply});
        drawing.addPipe({20, 50, 0}, {20, 70, 0}, {.system = kSupply, .flow = L"ES"});
        drawing.addPipe({30, 50, 0}, {30, 70, 0}, {.system = kSupply});
    }

    std::string saved() {
        std::string bytes;
        std::string error;
        EXPECT_TRUE(host_dxf::drawingBytes(drawing.database(), "saved.dxf", bytes, error)) << error;
        return bytes;
    }

    /// Lets each request for memory fail in turn, until the operation ends without a failure; gives
    /// how many there were.
    std::size_t failEachRequest(const std::function<void()>& operation) {
        const std::string before = saved();
        const host::LiveCounts taken = host::liveCounts();
        for (std::size_t n = 0;; ++n) {
            if (!failsAt(n, operation)) {
                return n;
            }
            const host::LiveCounts left = host::liveCounts();
            EXPECT_EQ(left.openObjects, taken.openObjects) << "request " << n;
            EXPECT_EQ(left.selectionSets, taken.selectionSets) << "request " << n;
            EXPECT_EQ(left.resultBuffers, taken.resultBuffers) << "request " << n;
            EXPECT_TRUE(left == taken) << "request " << n;
            EXPECT_EQ(saved(), before) << "request " << n;
            if (::testing::Test::HasFailure()) {
                return n;
            }
        }
    }

    AcDbObjectId well_;
    AcDbObjectId sewer_;
    AcDbObjectId main_;

private:
    static bool failsAt(std::size_t n, const std::function<void()>& operation) {
        const FailingMemory memory(n);
        try {
            operation();
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(memory.hasFailed());
        }
        return memory.hasFailed();
    }
};

void search(AcDbObjectId start, AcDbObjectId end) {
    SearchObject* object = nullptr;
    std::unique_ptr<SearchObject> owner;
    try {
        GetSearchInformation(object, start, end, AcGePoint3d());
    } catch (...) {
        delete object;
        throw;
    }
    delete object;
}

TEST_F(OutOfMemoryTest, GravitySearchLeavesTheDrawing) {
    EXPECT_GT(failEachRequest([this] { search(well_, sewer_); }), 100U);
}

TEST_F(OutOfMemoryTest, PressureSearchLeavesTheDrawing) {
    EXPECT_GT(failEachRequest([this] { search(main_, AcDbObjectId()); }), 100U);
}

TEST_F(OutOfMemoryTest, SearchThatThrowsLeavesItsObjectToTheCaller) {
    for (const AcDbObjectId start : {sewer_, main_}) {
        int withoutObject = 0;
        int withObject = 0;
        failEachRequest([&] {
            std::unique_ptr<SearchObject> owner;
            SearchObject* object = nullptr;
            AcDbObjectId from = start;
            AcDbObjectId none;
            try {
                GetSearchInformation(object, from, none, AcGePoint3d());
                owner.reset(object);
            } catch (const std::bad_alloc&) {
                owner.reset(object);
                ++(object == nullptr ? withoutObject : withObject);
                EXPECT_EQ(withObject > 0, object != nullptr);
                throw;
            }
        });
        EXPECT_GT(withoutObject, 0);
        EXPECT_GT(withObject, 50);
    }
}

TEST_F(OutOfMemoryTest, SingleSegmentLeavesTheDrawing) {
    EXPECT_GT(failEachRequest([this] {
                  Seg seg;
                  GetSingleSeg(seg, sewer_);
              }),
              50U);
}

TEST_F(OutOfMemoryTest, StretchesForTheCollisionTestLeaveTheDrawing) {
    EXPECT_GT(failEachRequest([this] {
                  AcDbObjectIdArray pipes;
                  pipes.append(sewer_);
                  pipes.append(main_);
                  CArray<Seg, Seg&> segs;
                  GetSegsForCollideTest(segs, pipes, 1);
              }),
              50U);
}

} // namespace
} // namespace module_tests
