#include "pressure/PressureCandidates.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "pressure/PressureNetworkSearch.h"
#include "records/Candidates.h"
#include "records/MedianReach.h"
#include "records/PartedBoxes.h"
#include "records/SettledPoints.h"

namespace tkvlt {

namespace {

double LargestRadius(const LargeVector<WellSite>& wells) {
    double largest = 0.0;
    for (const WellSite& well : wells) {
        // A radius that is not a number can pass nowhere, but then every distance must be looked
        // at.
        largest = std::isnan(well.radius) ? std::numeric_limits<double>::infinity()
                                          : std::max(largest, well.radius);
    }
    return largest;
}

/// The cells of the pieces have this many times the side of a usual pipe, so that most pipes need
/// look at few of them.
constexpr double kPipesPerCell = 4.0;

/// Hands out every entry that is present, as the rules are worded.
class PlainPressureCandidates final : public PressureCandidates {
public:
    explicit PlainPressureCandidates(const PressureNetworkSearch& search) : search_(search) {}

    void CuttingBegins(double /*gap*/) override {}
    Indices LaterPipesNear(int pipe) const override {
        return AllPresent(search_.pipePool, pipe + 1);
    }
    void ExpectPipesFrom(int /*pipe*/) const override {}
    void PieceAdded(int /*piece*/, int /*of*/) override {}
    void PipeCut(int /*pipe*/) override {}
    void PipesPrepared() override {}
    Indices PipesWithEndIn(const PlanBox& /*box*/) const override {
        return AllPresent(search_.pipePool);
    }
    Indices WellsIn(const PlanBox& /*box*/) const override { return AllPresent(search_.wellPool); }
    void ExpectWellsAt(const AcGePoint3d& /*point*/) const override {}
    double LargestWellRadius() const override { return LargestRadius(search_.WellSites()); }
    void SegsBuilt() override {}
    void LoopsChecked() override {}
    Indices SegsEndingIn(const PlanBox& /*box*/) const override {
        return FirstIndices(static_cast<int>(search_.segs.GetSize()));
    }

private:
    const PressureNetworkSearch& search_;
};

/// Finds candidates by their place: wells and ends in tables laid out once, pipes and their pieces
/// in lists of what comes near them.
class IndexedPressureCandidates final : public PressureCandidates {
public:
    explicit IndexedPressureCandidates(const PressureNetworkSearch& search)
        : search_(search), largestRadius_(LargestRadius(search.WellSites())) {
        IndexWells();
    }

    void CuttingBegins(double gap) override {
        std::vector<PlanBox> curves;
        curves.reserve(static_cast<std::size_t>(search_.pipePool.Size()));
        for (int pipe = 0; pipe < search_.pipePool.Size(); ++pipe) {
            curves.push_back(search_.pipePool.BoxOf(pipe));
        }
        const double usualPipe =
            MedianReach(curves.size(), [&](std::size_t pipe) { return curves[pipe].LongerSide(); });
        pipes_ =
            PartedBoxes(curves, gap + RoundingSlack(search_.pipePool), kPipesPerCell * usualPipe);
    }

    Indices LaterPipesNear(int pipe) const override {
        Indices pipes;
        pipes_.CollectLater(pipe, search_.pipePool.BoxOf(pipe), pipes);
        KeepPresent(pipes, search_.pipePool);
        return pipes;
    }

    void ExpectPipesFrom(int pipe) const override {
        pipes_.FetchAheadOf(pipe, [this](int other) { FetchAhead(search_.pipePool.At(other)); });
    }

    void PieceAdded(int piece, int of) override {
        const int whole = pipes_.WholeOf(of);
        pipes_.AddPart(whole, search_.pipePool.BoxOf(whole), search_.pipePool.BoxOf(piece));
    }

    void PipeCut(int pipe) override {
        if (pipes_.WholeOf(pipe) != pipe) {
            pipes_.RemovePart(pipe, search_.pipePool.BoxOf(pipe));
        }
    }

    void PipesPrepared() override {
        pipes_ = PartedBoxes();
        const auto ends = 2 * static_cast<std::size_t>(search_.pipePool.Size());
        pipeEnds_ = SettledPoints(usualQuery_, ends, [&](std::size_t end) -> const AcGePoint3d& {
            const PipePiece& piece = search_.pipePool.At(static_cast<int>(end / 2));
            return end % 2 == 0 ? piece.startPoint : piece.endPoint;
        });
    }

    Indices PipesWithEndIn(const PlanBox& box) const override {
        Indices pipes;
        pipeEnds_.Collect(box, pipes);
        for (int& pipe : pipes) {
            pipe /= 2; // two ends a pipe
            FetchAhead(search_.pipePool.At(pipe));
        }
        KeepPresent(pipes, search_.pipePool);
        return pipes;
    }

    Indices WellsIn(const PlanBox& box) const override {
        Indices wells;
        wells_.Collect(box, wells);
        for (const int well : wells) {
            FetchAhead(search_.WellSites()[static_cast<std::size_t>(well)]);
        }
        KeepPresent(wells, search_.wellPool);
        return wells;
    }

    void ExpectWellsAt(const AcGePoint3d& point) const override { wells_.FetchAheadAt(point); }

    double LargestWellRadius() const override { return largestRadius_; }

    void SegsBuilt() override {
        pipeEnds_ = SettledPoints();
        std::vector<AcGePoint3d> points;
        points.reserve(static_cast<std::size_t>(search_.segs.GetSize()));
        for (int i = 0; i < static_cast<int>(search_.segs.GetSize()); ++i) {
            points.push_back(search_.segs.ElementAt(i).GetSearchPoint());
        }
        searchPoints_ =
            SettledPoints(2.0 * kOnePlace, points.size(),
                          [&](std::size_t seg) -> const AcGePoint3d& { return points[seg]; });
    }

    void LoopsChecked() override { searchPoints_ = SettledPoints(); }

    Indices SegsEndingIn(const PlanBox& box) const override {
        Indices indices;
        searchPoints_.Collect(box, indices);
        indices.SortUnique();
        return indices;
    }

private:
    void IndexWells() {
        const LargeVector<WellSite>& sites = search_.WellSites();
        usualQuery_ =
            2.0 * MedianReach(sites.size(), [&](std::size_t well) { return sites[well].radius; });
        wells_ =
            SettledPoints(usualQuery_, sites.size(), [&](std::size_t well) -> const AcGePoint3d& {
                return sites[well].position;
            });
    }

    const PressureNetworkSearch& search_;
    double largestRadius_;    // wells only leave, so it stays a bound
    double usualQuery_ = 0.0; // side of the square that most wells take up
    PartedBoxes pipes_;
    SettledPoints pipeEnds_;
    SettledPoints wells_;
    SettledPoints searchPoints_;
};

} // namespace

std::unique_ptr<PressureCandidates> MakePressureCandidates(const PressureNetworkSearch& search,
                                                           CandidateMode mode) {
    if (mode == CandidateMode::kPlainScan) {
        return std::make_unique<PlainPressureCandidates>(search);
    }
    return std::make_unique<IndexedPressureCandidates>(search);
}

} // namespace tkvlt
