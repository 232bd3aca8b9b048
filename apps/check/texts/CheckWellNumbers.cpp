#include "HandleText.h"
#include "records/XdataKeys.h"
#include "texts/EntityPlace.h"
#include "texts/TextSteps.h"

#include <fmt/format.h>
#include <map>

namespace pipenet {

namespace {

/// The wells of one number, in drawing order.
struct NumberedWells {
    CString number;
    int system = -1;
    std::vector<AcDbObjectId> wells;
};

/// Those that share system and number, in the order of the first of them.
std::vector<NumberedWells> numberedWells(const CheckContext& context) {
    std::vector<NumberedWells> groups;
    std::map<std::pair<int, std::string>, std::size_t> known;
    for (const CheckedEntity& entity : context.entities) {
        if (entity.kind != EntityKind::well) {
            continue;
        }
        const CString number = XdataText(entity.id, xdata::kWellNumber);
        if (number.IsEmpty()) {
            continue;
        }
        const auto [group, isNew] = known.try_emplace({entity.system, utf8(number)}, groups.size());
        if (isNew) {
            groups.push_back({number, entity.system, {}});
        }
        groups[group->second].wells.push_back(entity.id);
    }
    return groups;
}

} // namespace

void checkWellNumbers(TextCheck& check) {
    for (const NumberedWells& group : numberedWells(check.context)) {
        if (group.wells.size() < 2) {
            continue;
        }
        Finding finding;
        finding.code = "duplicate-number";
        finding.severity = Severity::warning;
        finding.system = check.context.systems[static_cast<std::size_t>(group.system)].utf8Name;
        finding.entities = group.wells;
        finding.place = placeOf(group.wells.front());
        finding.measured = static_cast<double>(group.wells.size());
        finding.limit = 1.0;
        finding.sentence =
            fmt::format("{} wells carry the number {}: {}; give each a number of its own",
                        group.wells.size(), utf8(group.number), namesOf(group.wells, 4));
        check.report.findings.push_back(std::move(finding));
    }
}

} // namespace pipenet
