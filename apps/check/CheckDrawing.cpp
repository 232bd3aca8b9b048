#include "CheckDrawing.h"

#include "CheckContext.h"
#include "faults/LooseGroups.h"
#include "GravityCheck.h"
#include "PressureCheck.h"
#include "Systems.h"
#include "texts/TextFindings.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <unordered_set>

namespace pipenet {

namespace {

/// Checks system by system; what is loose comes last, for a finding of any system may say why.
class SystemsCheck {
public:
    SystemsCheck(const CheckContext& context, CheckReport& report)
        : context_(context), report_(report) {}

    void run() {
        for (int i = 0; i < static_cast<int>(context_.systems.size()); ++i) {
            checkSystem(i);
        }
        for (const Finding& finding : report_.findings) {
            explained_.insert(finding.entities.begin(), finding.entities.end());
        }
        for (SystemUnderCheck& under : checked_) {
            if (under.named().flow == kGravityFlow) {
                findLooseGroups(*gravity_, under);
            } else {
                findWellsWithoutPipe(under);
            }
        }
    }

private:
    void checkSystem(int system) {
        SystemUnderCheck under{context_, system, report_, explained_, {}, {}};
        if (under.named().flow == kGravityFlow) {
            if (!gravity_) {
                gravity_.emplace();
            }
            checkGravity(*gravity_, under);
        } else if (under.named().flow == kPressureFlow) {
            checkPressure(under);
        } else {
            return;
        }
        checked_.push_back(std::move(under));
    }

    const CheckContext& context_;
    CheckReport& report_;
    std::optional<GravityDrawing> gravity_;
    std::unordered_set<AcDbObjectId> explained_;
    std::vector<SystemUnderCheck> checked_;
};

std::unordered_set<AcDbObjectId> placedEntities(const CheckReport& report) {
    std::unordered_set<AcDbObjectId> placed;
    for (const CheckedNetwork& network : report.networks) {
        for (const CheckedNode& node : network.nodes) {
            placed.insert(node.entity);
            placed.insert(node.merged.begin(), node.merged.end());
        }
        for (const CheckedRun& run : network.runs) {
            placed.insert(run.pipes.begin(), run.pipes.end());
        }
    }
    return placed;
}

void listLoose(const CheckContext& context, CheckReport& report) {
    const std::unordered_set<AcDbObjectId> placed = placedEntities(report);
    for (const CheckedEntity& entity : context.entities) {
        if (placed.count(entity.id) == 0) {
            report.loose.push_back(entity.id);
        }
    }
}

void sortFindings(std::vector<Finding>& findings) {
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.severity, a.system, a.code, a.place.x, a.place.y) <
               std::tie(b.severity, b.system, b.code, b.place.x, b.place.y);
    });
}

} // namespace

CheckReport checkDrawing(const std::string& onlySystem) {
    const CheckContext context = readContext(onlySystem);
    CheckReport report;
    SystemsCheck(context, report).run();
    listLoose(context, report);
    addTextFindings(context, report);
    sortFindings(report.findings);
    return report;
}

} // namespace pipenet
