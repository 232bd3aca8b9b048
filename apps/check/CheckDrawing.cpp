#include "CheckDrawing.h"

#include "CheckContext.h"
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

void checkSystems(const CheckContext& context, CheckReport& report) {
    std::optional<GravityDrawing> gravity;
    for (int i = 0; i < static_cast<int>(context.systems.size()); ++i) {
        SystemUnderCheck under{context, i, report, {}, {}};
        if (under.named().flow == kGravityFlow) {
            if (!gravity) {
                gravity.emplace();
            }
            checkGravity(*gravity, under);
        } else if (under.named().flow == kPressureFlow) {
            checkPressure(under);
        }
    }
}

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
    checkSystems(context, report);
    listLoose(context, report);
    addTextFindings(context, report);
    sortFindings(report.findings);
    return report;
}

} // namespace pipenet
