#include "HandleText.h"
#include "records/XdataKeys.h"
#include "Systems.h"
#include "texts/EntityPlace.h"
#include "texts/TextSteps.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// Only a gravity network depends on the direction; a main under pressure often has none.
Severity severityOf(int flow, bool isMissing) {
    if (flow == kGravityFlow) {
        return Severity::error;
    }
    return isMissing ? Severity::note : Severity::warning;
}

} // namespace

void checkFlowTexts(TextCheck& check) {
    for (const CheckedEntity& entity : check.context.entities) {
        if (entity.kind != EntityKind::pipe) {
            continue;
        }
        const CString text = XdataText(entity.id, xdata::kFlow);
        if (text == xdata::kStartToEnd || text == xdata::kEndToStart) {
            continue;
        }
        const CheckedSystem& system = check.context.systemOf(entity);
        check.unreadable.flows.insert(entity.id);
        Finding finding;
        finding.code = "flow-text";
        finding.severity = severityOf(system.flow, text.IsEmpty());
        finding.system = system.utf8Name;
        finding.entities = {entity.id};
        finding.place = placeOf(entity.id);
        finding.sentence =
            fmt::format("{} of {} is {} and is read as if it were ES; write SE when the water runs "
                        "from the pipe's "
                        "start to its end, else ES",
                        utf8(xdata::kFlow), nameOf(entity.id),
                        text.IsEmpty() ? std::string("missing") : "'" + utf8(text) + "'");
        check.report.findings.push_back(std::move(finding));
    }
}

} // namespace pipenet
