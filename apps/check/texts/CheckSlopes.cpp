// A slope text is held against the fall by the elevations. The length over which a designer
// reckoned the fall is not known: it may be that of the pipe or that of the whole run, from rim to
// rim or from centre to centre. A slope that fits one of them fits.

#include "Systems.h"
#include "texts/EntityPlace.h"
#include "texts/TextSteps.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <limits>

namespace pipenet {

namespace {

/// A fall that differs by no more than this, metres, or by no more than this share of it, is the
/// same: elevations are written to the centimetre, and slopes to the tenth of a per cent.
constexpr double kSameFall = 0.02;
constexpr double kSameShare = 0.1;

/// What a slope text misses the heights by.
struct Miss {
    double fall = 0.0;   ///< by the heights, in the direction of the water, metres
    double told = 0.0;   ///< by the slope text, over the length that fits best
    double length = 0.0; ///< that length, metres
    double measured = std::numeric_limits<double>::infinity(); ///< difference of the two falls
    double limit = 0.0;

    bool isTooFar() const { return measured > limit; }
};

/// Which slopes would tell the same as this one. Under pressure a slope has no direction, and of a
/// pipe that rises along its water the steps before this one have told.
bool hasDirection(bool isPressure, double fall) {
    return !isPressure && fall >= 0.0;
}

Miss missOf(const PipeReading& pipe, const std::vector<double>& lengths, bool isPressure) {
    Miss miss;
    miss.fall = pipe.upstream - pipe.downstream;
    miss.limit = std::max(kSameFall, kSameShare * std::abs(miss.fall));
    for (const double length : lengths) {
        const double told = pipe.slope * length;
        const double away = hasDirection(isPressure, miss.fall)
                                ? std::abs(told - miss.fall)
                                : std::abs(std::abs(told) - std::abs(miss.fall));
        if (away < miss.measured) {
            miss.measured = away;
            miss.told = told;
            miss.length = length;
        }
    }
    return miss;
}

double lengthOf(const AcDbObjectId& pipe) {
    return metres(_Pipe(pipe, CString()).GetLength());
}

class SlopeCheck {
public:
    explicit SlopeCheck(TextCheck& check) : check_(check) {}

    void checkRun(const RunReading& reading) {
        const CheckedNetwork& network =
            check_.report.networks[static_cast<std::size_t>(reading.network)];
        const double centres = metres(reading.run->start.distanceTo(reading.run->end));
        begin(network.system, reading.network);
        for (const PipeReading& pipe : reading.pipes) {
            if (weighed_.insert(pipe.pipe).second) {
                weigh(pipe, {lengthOf(pipe.pipe), reading.run->length, centres},
                      network.isPressure);
            }
        }
        end();
    }

    void checkLoose(const CheckedEntity& entity) {
        const CheckedSystem& system = check_.context.systemOf(entity);
        if (entity.kind != EntityKind::pipe || !weighed_.insert(entity.id).second) {
            return;
        }
        begin(system.utf8Name, -1);
        const PipeReading pipe = readPipe(entity.id, _Pipe(entity.id, CString()).startPoint);
        weigh(pipe, {lengthOf(entity.id)}, system.flow != kGravityFlow);
        end();
    }

private:
    void begin(const std::string& system, int network) {
        finding_ = Finding();
        finding_.system = system;
        finding_.network = network;
        worst_ = Miss();
        worst_.measured = 0.0;
    }

    void weigh(const PipeReading& pipe, const std::vector<double>& lengths, bool isPressure) {
        const UnreadablePipes& unreadable = check_.unreadable;
        const bool saysNothing =
            unreadable.heights.count(pipe.pipe) != 0 || unreadable.slopes.count(pipe.pipe) != 0 ||
            (isPressure ? pipe.slope == 0.0 : unreadable.flows.count(pipe.pipe) != 0);
        const Miss miss = missOf(pipe, lengths, isPressure);
        if (saysNothing || !miss.isTooFar()) {
            return;
        }
        const bool isWorst = miss.measured > worst_.measured;
        if (isWorst) {
            worst_ = miss;
            worstPipe_ = pipe;
        }
        finding_.entities.insert(isWorst ? finding_.entities.begin() : finding_.entities.end(),
                                 pipe.pipe);
    }

    void end() {
        if (finding_.entities.empty()) {
            return;
        }
        finding_.code = "slope-disagrees";
        finding_.severity = Severity::warning;
        finding_.place = placeOf(worstPipe_.pipe);
        finding_.measured = worst_.measured;
        finding_.limit = worst_.limit;
        finding_.unit = "m";
        finding_.sentence = fmt::format(
            "the slope text of {} does not fit the elevations: over {:.2f} m {} falls {:.3f} m by "
            "its "
            "elevations and {:.3f} m by its slope of {:.6g}; correct the one or the other",
            namesOf(finding_.entities, 4), worst_.length, nameOf(worstPipe_.pipe), worst_.fall,
            worst_.told, worstPipe_.slope);
        check_.report.findings.push_back(finding_);
    }

    TextCheck& check_;
    std::unordered_set<AcDbObjectId> weighed_;
    Finding finding_;
    Miss worst_;
    PipeReading worstPipe_;
};

} // namespace

void checkSlopes(TextCheck& check) {
    SlopeCheck slopes(check);
    for (const RunReading& reading : check.runs) {
        slopes.checkRun(reading);
    }
    for (const CheckedEntity& entity : check.context.entities) {
        slopes.checkLoose(entity);
    }
}

} // namespace pipenet
