#include "SystemUnderCheck.h"

#include <iterator>
#include <utility>

namespace pipenet {

Finding& SystemUnderCheck::add(const char* code, Severity severity) {
    Finding& finding = report.findings.emplace_back();
    finding.code = code;
    finding.severity = severity;
    finding.system = named().utf8Name;
    return finding;
}

void placeNetworks(SystemUnderCheck& under, NetworkPieces pieces, bool isPressure) {
    under.pieces = std::move(pieces);
    AssembledNetworks assembled =
        assembleNetworks(under.pieces, under.named().utf8Name, isPressure);
    const int first = static_cast<int>(under.report.networks.size());
    under.networkOfNode = std::move(assembled.networkOfNode);
    for (int& network : under.networkOfNode) {
        network += network < 0 ? 0 : first;
    }
    under.report.networks.insert(under.report.networks.end(),
                                 std::make_move_iterator(assembled.networks.begin()),
                                 std::make_move_iterator(assembled.networks.end()));
}

} // namespace pipenet
