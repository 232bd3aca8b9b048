#include "texts/EntityPlace.h"
#include "texts/TextSteps.h"

#include "Systems.h"

#include <fmt/format.h>

namespace pipenet {

void checkSystemNames(TextCheck& check) {
    for (std::size_t i = 0; i < check.context.systems.size(); ++i) {
        const CheckedSystem& system = check.context.systems[i];
        if (system.flow != kUnknownFlow || system.name.IsEmpty()) {
            continue;
        }
        Finding finding;
        finding.code = "unknown-system";
        finding.severity = Severity::error;
        finding.system = system.utf8Name;
        for (const CheckedEntity& entity : check.context.entities) {
            if (static_cast<std::size_t>(entity.system) == i) {
                finding.entities.push_back(entity.id);
            }
        }
        finding.place = placeOf(finding.entities.front());
        finding.sentence = fmt::format(
            "the settings do not say whether the system '{}' flows by gravity or under pressure, "
            "so {} "
            "of it {} in no network, {} first; mend the name, or enter the system with its "
            "GroupType "
            "in PipeLineSetting.Kdp",
            system.utf8Name,
            finding.entities.size() == 1 ? std::string("the one entity")
                                         : fmt::format("the {} entities", finding.entities.size()),
            finding.entities.size() == 1 ? "is" : "are", nameOf(finding.entities.front()));
        check.report.findings.push_back(std::move(finding));
    }
}

} // namespace pipenet
