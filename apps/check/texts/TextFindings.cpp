// What is amiss with the texts of a drawing. Each step looks at one kind of fault. A text that
// cannot be read is told by the first steps, and the steps that weigh values against each other
// pass over the pipes that have one: one fault, one finding.

#include "texts/TextFindings.h"

#include "texts/TextSteps.h"

namespace pipenet {

namespace {

/// Gives each finding behind the first `told` the network of the entity to look at first.
void nameNetworks(CheckReport& report, std::size_t told) {
    std::unordered_map<AcDbObjectId, int> networks;
    for (std::size_t i = 0; i < report.networks.size(); ++i) {
        for (const CheckedNode& node : report.networks[i].nodes) {
            networks.emplace(node.entity, static_cast<int>(i));
            for (const AcDbObjectId& merged : node.merged) {
                networks.emplace(merged, static_cast<int>(i));
            }
        }
        for (const CheckedRun& run : report.networks[i].runs) {
            for (const AcDbObjectId& pipe : run.pipes) {
                networks.emplace(pipe, static_cast<int>(i));
            }
        }
    }
    for (std::size_t i = told; i < report.findings.size(); ++i) {
        Finding& finding = report.findings[i];
        const auto network = networks.find(finding.entities.front());
        if (finding.network < 0 && network != networks.end()) {
            finding.network = network->second;
        }
    }
}

} // namespace

void addTextFindings(const CheckContext& context, CheckReport& report) {
    const std::size_t told = report.findings.size();
    TextCheck check{context, report, readRuns(report), {}};
    checkSystemNames(check);
    checkMissingKeys(check);
    checkStrayKeys(check);
    checkNumberTexts(check);
    checkFlowTexts(check);
    checkWellNumbers(check);
    checkPieces(check);
    checkHeights(check);
    checkSlopes(check);
    checkDiameters(check);
    addSystemFigures(check);
    nameNetworks(report, told);
}

} // namespace pipenet
