#include "faults/PressureEnds.h"

#include "faults/PipeAngle.h"
#include "faults/ShortPipes.h"
#include "records/BoxTree.h"
#include "records/Candidates.h"
#include "records/PlanBox.h"
#include "Systems.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>
#include <unordered_set>

namespace pipenet {

namespace {

/// A gap up to this many times the one that joins is a near miss.
constexpr double kNearMiss = 5.0;

/// Another pipe beside a free end.
struct Neighbour {
    int piece = -1;
    double distance = 0.0; ///< to its curve, drawing units
    bool isAtEnd = false;  ///< what is nearest is one of its ends
};

class PressureEnds {
public:
    PressureEnds(const PressureForest& forest, SystemUnderCheck& under)
        : pool_(forest.search().pipePool), forest_(forest), under_(under) {
        std::vector<tkvlt::PlanBox> boxes;
        for (const int piece : forest.prepared()) {
            boxes.push_back(pool_.BoxOf(piece));
        }
        pieces_ = tkvlt::BoxTree(boxes);
        for (std::size_t i = 0; i < under.pieces.runs.size(); ++i) {
            const CheckedRun& run = under.pieces.runs[i];
            for (const AcDbObjectId& pipe : run.pipes) {
                networks_.emplace(pipe, under.networkOfNode[static_cast<std::size_t>(run.from)]);
            }
        }
    }

    void report() {
        for (const Closing& closing : under_.pieces.closings) {
            if (closing.isNearMiss) {
                nearRings_.insert(
                    under_.pieces.runs[static_cast<std::size_t>(closing.run)].pipes.back());
            }
        }
        const ShortPipes shortPipes(under_);
        shortPipes.report(under_);
        for (const FreeEnd& end : forest_.freeEnds()) {
            if (!end.foreignWell.isNull()) {
                Finding& finding = add("end-in-foreign-well", Severity::warning, end);
                finding.entities.push_back(end.foreignWell);
                finding.sentence = foreignWellSentence(end.pipe, end.foreignWell);
            } else if (!shortPipes.endNear(end.place, end.reach)) {
                reportGap(end);
            }
        }
    }

private:
    void reportGap(const FreeEnd& end) {
        const Neighbour near = nearest(end);
        if (near.piece < 0) {
            return;
        }
        const AcDbObjectId& other = pool_.IdOf(near.piece);
        if (nearRings_.count(end.pipe) != 0 || nearRings_.count(other) != 0) {
            return; // told as a ring, which is what the search makes of it
        }
        if (near.isAtEnd && !reported_.emplace(std::minmax(end.pipe, other)).second) {
            return;
        }
        Finding& finding = add("gap-at-joint", Severity::error, end);
        finding.entities.push_back(other);
        finding.measured = metres(near.distance);
        finding.limit = near.isAtEnd ? metres(end.reach) : 0.0;
        finding.unit = "m";
        finding.sentence =
            near.isAtEnd ? endSentence(end, other, finding) : sideSentence(end, other, finding);
    }

    static std::string endSentence(const FreeEnd& end, const AcDbObjectId& other,
                                   const Finding& finding) {
        return fmt::format("the ends of {} and {} are {:.4g} m apart, and ends join only when they "
                           "are at most {:.4g} m apart; draw them together",
                           nameOf(end.pipe), nameOf(other), *finding.measured, *finding.limit);
    }

    static std::string sideSentence(const FreeEnd& end, const AcDbObjectId& other,
                                    const Finding& finding) {
        return fmt::format(
            "{} ends {:.4g} m short of {}, and a pipe joins the side of another only "
            "when it touches it; draw it up to there",
            nameOf(end.pipe), *finding.measured, nameOf(other));
    }

    static double distanceTo(const _Pipe& pipe, const AcGePoint3d& place) {
        return pipe.isArc != 0 ? pipe.arc.distanceTo(place) : pipe.line.distanceTo(place);
    }

    /// What joins a short pipe at its other end, and comes no nearer than there, is no near miss.
    bool isJoinedBehind(const FreeEnd& end, const _Pipe& other, double distance) const {
        const _Pipe& own = pool_[end.piece];
        const AcGePoint3d& behind = end.isStart ? own.endPoint : own.startPoint;
        return distanceTo(other, behind) <= end.reach &&
               distance >= behind.distanceTo(end.place) - end.reach;
    }

    /// The nearest other pipe within a near miss; none when it is the end's own.
    Neighbour nearest(const FreeEnd& end) const {
        const double farthest = kNearMiss * end.reach;
        Neighbour best;
        for (const int item :
             tkvlt::Collected(pieces_, tkvlt::PlanBox::Around(end.place, farthest))) {
            const int piece = forest_.prepared()[static_cast<std::size_t>(item)];
            const _Pipe& pipe = pool_[piece];
            if (pipe.id == end.pipe) {
                continue;
            }
            const double toCurve = distanceTo(pipe, end.place);
            const double toEnd = std::min(pipe.startPoint.distanceTo(end.place),
                                          pipe.endPoint.distanceTo(end.place));
            // Near one of its ends the end is what the two are to join at.
            const bool isAtEnd = toEnd <= toCurve + end.reach;
            const double distance = isAtEnd ? toEnd : toCurve;
            if (distance <= farthest && !isJoinedBehind(end, pipe, distance) &&
                (best.piece < 0 || distance < best.distance)) {
                best = {piece, distance, isAtEnd};
            }
        }
        return best;
    }

    Finding& add(const char* code, Severity severity, const FreeEnd& end) {
        Finding& finding = under_.add(code, severity);
        finding.entities = {end.pipe};
        finding.place = end.place;
        const auto network = networks_.find(end.pipe);
        finding.network = network == networks_.end() ? -1 : network->second;
        return finding;
    }

    const tkvlt::PipePieces& pool_;
    const PressureForest& forest_;
    SystemUnderCheck& under_;
    tkvlt::BoxTree pieces_; ///< item i is the i-th prepared pipe
    std::unordered_map<AcDbObjectId, int> networks_;
    std::unordered_set<AcDbObjectId> nearRings_; ///< pipes whose ends are taken for closing a ring
    std::set<std::pair<AcDbObjectId, AcDbObjectId>> reported_; ///< pipes with a gap between ends
};

} // namespace

void findPressureEnds(const PressureForest& forest, SystemUnderCheck& under) {
    PressureEnds(forest, under).report();
}

} // namespace pipenet
