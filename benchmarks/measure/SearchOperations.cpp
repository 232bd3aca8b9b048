// The searches as the callers of the module know them.

#include "measure/Operation.h"
#include "measure/Search.h"

#include <stdexcept>

namespace benchmark_measure {

void require(bool holds, const std::string& what) {
    if (!holds) {
        throw std::runtime_error(what);
    }
}

namespace {

/// All systems of a drawing, one search each.
class SearchOperation : public Operation {
public:
    SearchOperation(const OpenSpecimen& specimen, bool plain) {
        for (const SystemTruth& system : specimen.truth().systems) {
            searches_.push_back(std::make_unique<Search>(specimen, system, plain));
        }
    }
    void prepare() override {
        for (const auto& search : searches_) {
            search->clear();
        }
    }
    void run() override {
        for (const auto& search : searches_) {
            search->run();
        }
    }
    void check(bool first) override {
        for (const auto& search : searches_) {
            search->check(first);
        }
    }

private:
    std::vector<std::unique_ptr<Search>> searches_;
};

class SegmentOperation : public Operation {
public:
    explicit SegmentOperation(const OpenSpecimen& specimen)
        : system_(specimen.truth().systems.front()), pipe_(specimen.entity(system_.farPipe)) {
        ::setenv("TKVLT_CANDIDATES", "", 1);
    }
    void prepare() override { seg_ = std::make_unique<Seg>(); }
    void run() override { result_ = GetSingleSeg(*seg_, pipe_); }
    void check(bool) override {
        require(result_ != 0 && seg_->kind == (system_.pressure ? 0 : 1),
                "the pipe has no segment of its kind");
    }

private:
    const SystemTruth& system_;
    AcDbObjectId pipe_;
    std::unique_ptr<Seg> seg_;
    int result_ = 0;
};

/// Lowers the pipe farthest from the root, so that all on the way to it follows. The drawing is
/// changed by it.
class LowerOperation : public Operation {
public:
    LowerOperation(Bench& bench, const Specimen& specimen) : bench_(bench) {
        bench_.clear();
        const OpenSpecimen& opened = bench_.open(specimen);
        pipe_ = opened.entity(opened.truth().systems.front().farPipe);
        ::setenv("TKVLT_CANDIDATES", "", 1);
    }
    ~LowerOperation() override { bench_.clear(); }
    LowerOperation(const LowerOperation&) = delete;
    LowerOperation& operator=(const LowerOperation&) = delete;
    void prepare() override { before_ = height(); }
    void run() override { result_ = LowerHeightForCollideTest(pipe_, kDrop); }
    void check(bool) override {
        // Heights are written with six significant digits.
        require(result_ == 1 && std::abs(before_ - kDrop - height()) < kHeightDigits,
                "the pipe was not lowered");
    }

private:
    static constexpr double kDrop = 0.25;
    static constexpr double kHeightDigits = 0.011;

    double height() const {
        CString text;
        GetXdata(pipe_, L"起点标高", text);
        return platform_crt::wcstod(static_cast<const wchar_t*>(text), nullptr);
    }

    Bench& bench_;
    AcDbObjectId pipe_;
    double before_ = 0.0;
    int result_ = 0;
};

bool isGravityTown(const Specimen& specimen) {
    return specimen.isOf("sewers") || specimen.isOf("twin") || specimen.isOf("districts");
}

bool isGravityExample(const Specimen& specimen) {
    return specimen.isExample() && !specimen.known.systems.front().pressure;
}

bool isPressureExample(const Specimen& specimen) {
    return specimen.isExample() && specimen.known.systems.front().pressure;
}

bool isGravityGrid(const Specimen& specimen) {
    return specimen.isOf("shallow") || specimen.isOf("shallow-well") || specimen.isOf("arcs") ||
           specimen.isOf("arcs-well");
}

using AppliesTo = bool (*)(const Specimen&);

bool isGravity(const Specimen& specimen) {
    return isGravityTown(specimen) || isGravityExample(specimen) || isGravityGrid(specimen);
}

bool isPressure(const Specimen& specimen) {
    return specimen.isOf("water") || specimen.isOf("square") || isPressureExample(specimen);
}

OperationKind search(const std::string& name, AppliesTo appliesTo, bool plain) {
    return {name, appliesTo, [plain](Bench& bench, const Specimen& specimen) {
                return std::make_unique<SearchOperation>(bench.open(specimen), plain);
            }};
}

} // namespace

std::vector<OperationKind> searchOperations() {
    return {search("gravity_search", isGravity, false),
            search("gravity_search_plain", isGravity, true),
            search("pressure_search", isPressure, false),
            search("pressure_search_plain", isPressure, true),
            {"single_segment",
             [](const Specimen& s) { return s.isOf("sewers") || s.isOf("water") || s.isExample(); },
             [](Bench& bench, const Specimen& specimen) {
                 return std::make_unique<SegmentOperation>(bench.open(specimen));
             }},
            {"lower_heights",
             [](const Specimen& s) { return s.isOf("sewers") || s.isOf("districts"); },
             [](Bench& bench, const Specimen& specimen) {
                 return std::make_unique<LowerOperation>(bench, specimen);
             }}};
}

} // namespace benchmark_measure
