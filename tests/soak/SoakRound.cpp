#include "SoakRound.h"

#include "Siblings.h"
#include "TKVltSearchModule18.h"

#include <memory>
#include <stdexcept>

namespace soak {

namespace {

/// A document for as long as this lives.
class OpenDrawing {
public:
    explicit OpenDrawing(const std::string& path) {
        std::string error;
        document_ = host::openDocument(path, error);
        require(document_ != nullptr, error);
    }
    OpenDrawing(const OpenDrawing&) = delete;
    OpenDrawing& operator=(const OpenDrawing&) = delete;
    ~OpenDrawing() { host::closeDocument(document_); }

    /// The entity with the handle; the null id for an empty one.
    AcDbObjectId at(const wchar_t* handle) const {
        AcDbObjectId id;
        if (*handle != L'\0') {
            document_->database()->getAcDbObjectId(id, false, AcDbHandle(handle));
            require(!id.isNull(), "an entity of the drawing is missing");
        }
        return id;
    }

    void save(const std::string& path) const {
        std::string error;
        require(host::saveDocument(document_, path, error), error);
    }

private:
    AcApDocument* document_;
};

std::unique_ptr<SearchObject> search(const OpenDrawing& opened, const SoakDrawing& drawing) {
    AcDbObjectId start = opened.at(drawing.start);
    AcDbObjectId end = opened.at(drawing.end);
    SearchObject* object = nullptr;
    const int result = GetSearchInformation(object, start, end, drawing.point);
    std::unique_ptr<SearchObject> owner(object);
    require(result == drawing.result, "the search gives another result");
    require((object != nullptr) == (drawing.result == 1), "a network without a result");
    return owner;
}

GravitySearchObject* sewerOf(const std::unique_ptr<SearchObject>& found) {
    auto* sewer = dynamic_cast<GravitySearchObject*>(found.get());
    require(sewer != nullptr, "a sewer is expected");
    return sewer;
}

void expectSewer(const GravitySearchObject& sewer, const SoakDrawing& drawing) {
    require(sewer.segs.GetSize() == drawing.segments, "another number of segments");
    require(sewer.wells.GetSize() == drawing.segments + 1, "another number of nodes");
    require(sewer.pathWells.GetSize() == drawing.pathWells, "another way to the root");
}

void expectMain(const std::unique_ptr<SearchObject>& found, const SoakDrawing& drawing) {
    const auto* main = dynamic_cast<const PressureSearchObject*>(found.get());
    require(main != nullptr, "a water main is expected");
    require(main->segs.GetSize() == drawing.segments, "another number of runs");
}

void expectNetwork(const OpenDrawing& opened, const SoakDrawing& drawing) {
    const std::unique_ptr<SearchObject> found = search(opened, drawing);
    if (drawing.result == 0) {
        return;
    }
    if (drawing.isPressure) {
        expectMain(found, drawing);
    } else {
        expectSewer(*sewerOf(found), drawing);
    }
}

/// Takes segments out from the last one on, which leads to a leaf, until the root is alone.
void deleteAll(const OpenDrawing& opened, const SoakDrawing& drawing) {
    const std::unique_ptr<SearchObject> found = search(opened, drawing);
    GravitySearchObject* sewer = sewerOf(found);
    AcDbObjectId end = opened.at(drawing.end);
    // A tank as the root has no text under the name by which a well's system is compared.
    const int hasWellAsRoot = sewer->wells[0].isWell;
    require(FindGravityPath(sewer, end) == hasWellAsRoot, "another answer on the way to the root");
    require(sewer->pathWells.GetSize() == (1 + hasWellAsRoot) * drawing.pathWells,
            "another way the second time");
    for (int left = drawing.segments; left > 0; --left) {
        require(DeleteSeg(sewer, left - 1) == 1, "a segment is not deleted");
        require(sewer->segs.GetSize() == left - 1, "more than one segment went");
        require(sewer->wells.GetSize() == left, "more than one node went");
    }
    require(sewer->pathSegs.IsEmpty() != FALSE, "a way without segments");
}

bool carries(AcDbObjectId pipe, const wchar_t* key, const wchar_t* text) {
    CString value;
    return GetXdata(pipe, key, value) != 0 && value.Compare(text) == 0;
}

void expectLowered(const OpenDrawing& opened, const Lowering& lowered) {
    const AcDbObjectId pipe = opened.at(lowered.pipe);
    require(carries(pipe, L"起点标高", lowered.startText), "another height at the start");
    require(carries(pipe, L"终点标高", lowered.endText), "another height at the end");
}

/// The stretch of the pipe, alone and twice in a list.
void expectStretch(AcDbObjectId pipe, int kind) {
    Seg seg;
    require(GetSingleSeg(seg, pipe) == 1 && seg.kind == kind, "another stretch");
    AcDbObjectIdArray pipes;
    pipes.append(pipe);
    pipes.append(pipe);
    CArray<Seg, Seg&> segs;
    require(GetSegsForCollideTest(segs, pipes, 1) == 1, "no stretches");
    require(segs.GetSize() == (kind == 1 ? 1 : 2), "another number of stretches");
}

void lower(const OpenDrawing& opened, const SoakDrawing& drawing) {
    if (drawing.isPressure) {
        const AcDbObjectId pipe = opened.at(drawing.start);
        expectStretch(pipe, 0);
        require(LowerHeightForCollideTest(pipe, 0.5) == 0, "a water main is not lowered");
        return;
    }
    const AcDbObjectId pipe = opened.at(drawing.lowered.pipe);
    expectStretch(pipe, 1);
    require(LowerHeightForCollideTest(pipe, drawing.lowered.drop) == 1, "not lowered");
    expectLowered(opened, drawing.lowered);
    deleteAll(opened, drawing);
}

} // namespace

void require(bool holds, const std::string& what) {
    if (!holds) {
        throw std::runtime_error(what);
    }
}

void runRound(const SoakDrawing& drawing, const std::string& saved) {
    const host::LiveCounts before = host::liveCounts();
    {
        const OpenDrawing opened(std::string(TKVLT_EXAMPLES_DIR) + "/" + drawing.file);
        expectNetwork(opened, drawing);
        lower(opened, drawing);
        opened.save(saved);
    }
    {
        const OpenDrawing reopened(saved);
        expectNetwork(reopened, drawing);
        if (!drawing.isPressure) {
            expectLowered(reopened, drawing.lowered);
        }
    }
    require(acDocManager()->documentCount() == 0, "a document is still open");
    const host::LiveCounts after = host::liveCounts();
    require(after.openObjects == 0, "an object is still open");
    require(after.selectionSets == 0, "a selection set is not freed");
    require(after.resultBuffers == 0, "a chain is not released");
    require(after.locks == 0, "a document is still locked");
    require(after == before, "something of the host is still taken");
}

} // namespace soak
