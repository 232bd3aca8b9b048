// Parts of the searches by themselves, and the breaking of lines.

#include "gravity/GravityNetworkSearch.h"
#include "measure/Operation.h"
#include "pressure/PressureNetworkSearch.h"
#include "utilities/BreakLine.h"

#include <cmath>

namespace benchmark_measure {

namespace {

using tkvlt::CandidateMode;
using tkvlt::GravityNetworkSearch;
using tkvlt::PressureNetworkSearch;

/// A search without a result, and what it needs to refer to. The drawing stays as it is, as whole
/// searches have it.
struct GravityContext {
    GravityContext() { search.LetDrawingStay(); }

    AcDbObjectId none;
    AcGePoint3d origin;
    GravityNetworkSearch search{nullptr, none, none, origin, CandidateMode::kIndexed};
};

class CollectOperation : public Operation {
public:
    explicit CollectOperation(const OpenSpecimen& specimen) : truth_(specimen.truth()) {}
    void prepare() override { context_ = std::make_unique<GravityContext>(); }
    void run() override { context_->search.CollectEntities(); }
    void check(bool) override {
        require(static_cast<std::size_t>(context_->search.pipePool.Size()) == truth_.pipes &&
                    static_cast<std::size_t>(context_->search.wellPool.Size()) == truth_.wells,
                "the pools do not hold what stands in the drawing");
    }

private:
    const Truth& truth_;
    std::unique_ptr<GravityContext> context_;
};

/// Follows each pipe of the drawing out through its end, up to a bound.
class TraceOperation : public Operation {
public:
    static constexpr int kMostTraces = 10000;

    explicit TraceOperation(const OpenSpecimen&) {
        context_.search.systemName = L"污水";
        context_.search.CollectEntitiesOnly();
        traces_ = std::min(kMostTraces, context_.search.pipePool.Size());
    }
    void run() override {
        reached_ = 0;
        for (int i = 0; i < traces_; ++i) {
            context_.search.ResetChain(i);
            reached_ += context_.search.TraceChain(i, 0, context_.search.Site(i).startPoint);
        }
    }
    void check(bool) override {
        // Three wells in a hundred have a dead end, so fewer pipes than that lead nowhere.
        require(reached_ * 100 >= traces_ * 97 && reached_ <= traces_, "chains lead nowhere");
    }

private:
    GravityContext context_;
    int traces_ = 0;
    int reached_ = 0;
};

/// Cuts the pipes at their crossings and moves their ends to the centres of the wells.
class PrepareOperation : public Operation {
public:
    explicit PrepareOperation(const OpenSpecimen& specimen)
        : system_(specimen.truth().systems.front()), pipes_(specimen.truth().pipes),
          picked_(specimen.entity(system_.start)) {
        siblings::DrawingSettings settings;
        settings.pipeCalLongType = 1;
        siblings::setDrawingSettings(settings);
    }
    ~PrepareOperation() override { siblings::clearDrawingSettings(); }
    PrepareOperation(const PrepareOperation&) = delete;
    PrepareOperation& operator=(const PrepareOperation&) = delete;
    void prepare() override {
        search_ = std::make_unique<PressureNetworkSearch>(
            segs_, picked_, AcGePoint3d(system_.x, system_.y, 0.0), root_, CandidateMode::kIndexed);
        require(search_->ReadSystemName() == 1 && search_->CollectEntities() == 1,
                "nothing was collected");
    }
    void run() override { search_->PreparePipes(); }
    void check(bool) override {
        // Each street is cut once, where its house connection leaves; a third of the segments are
        // connections.
        std::size_t pieces = 0;
        for (int i = 0; i < search_->pipePool.Size(); ++i) {
            pieces += search_->pipePool.Has(i) ? 1U : 0U;
        }
        require(pieces == pipes_ + system_.segments / 3, "the pipes were cut otherwise");
    }

private:
    const SystemTruth& system_;
    std::size_t pipes_;
    AcDbObjectId picked_;
    CArray<PressureSeg, PressureSeg&> segs_;
    int root_ = -1;
    std::unique_ptr<PressureNetworkSearch> search_;
};

/// Breaks as many streets as avenues at all their crossings, in a drawing of its own.
class BreakOperation : public Operation {
public:
    BreakOperation(Bench& bench, int side) : side_(side) { bench.clear(); }
    ~BreakOperation() override { host::closeDocument(document_); }
    BreakOperation(const BreakOperation&) = delete;
    BreakOperation& operator=(const BreakOperation&) = delete;
    void prepare() override {
        constexpr double pitch = 100.0;
        host::closeDocument(document_);
        document_ = host::newDocument();
        lines_.setLogicalLength(0);
        const double last = pitch * side_;
        for (int i = 0; i < side_; ++i) {
            const double at = pitch * (i + 0.5);
            addLine({0.0, at, 0.0}, {last, at, 0.0});
            addLine({at, 0.0, 0.0}, {at, last, 0.0});
        }
    }
    void run() override { PelBreakLine(lines_); }
    void check(bool) override {
        // A line is broken once at each of its crossings.
        require(lines_.length() == 2 * side_ * (1 + side_), "the lines were broken otherwise");
    }

private:
    void addLine(const AcGePoint3d& start, const AcGePoint3d& end) {
        AcDbObjectId id;
        require(PutEntityToDatabase(new AcDbLine(start, end), id) == Acad::eOk,
                "a line was not added");
        lines_.append(id);
    }

    int side_;
    AcApDocument* document_ = nullptr;
    AcDbObjectIdArray lines_;
};

template<class Kind>
OperationKind onTowns(const std::string& name, std::function<bool(const Specimen&)> appliesTo) {
    return {name, std::move(appliesTo), [](Bench& bench, const Specimen& specimen) {
                return std::make_unique<Kind>(bench.open(specimen));
            }};
}

} // namespace

std::vector<OperationKind> partOperations() {
    const auto sewers = [](const Specimen& specimen) { return specimen.isOf("sewers"); };
    const auto water = [](const Specimen& specimen) { return specimen.isOf("water"); };
    return {onTowns<CollectOperation>("collect", sewers),
            onTowns<TraceOperation>("trace_chains", sewers),
            onTowns<PrepareOperation>("prepare_pipes", water),
            {"break_lines", [](const Specimen& specimen) { return specimen.isOf("shallow"); },
             [](Bench& bench, const Specimen& specimen) {
                 const int side = std::stoi(specimen.name.substr(specimen.name.rfind('-') + 1));
                 return std::make_unique<BreakOperation>(bench, side);
             }}};
}

} // namespace benchmark_measure
