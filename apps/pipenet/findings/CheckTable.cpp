#include "findings/CheckTable.h"

#include "findings/CheckJson.h"
#include "HandleText.h"
#include "TextTable.h"

#include <algorithm>
#include <fmt/format.h>
#include <sstream>

namespace pipenet {

namespace {

/// More handles than these are counted; the other formats have them all.
constexpr std::size_t kHandlesShown = 6;

using Findings = std::vector<const Finding*>;

std::ptrdiff_t countOf(const CheckReport& report, Severity severity) {
    return std::count_if(report.findings.begin(), report.findings.end(),
                         [severity](const Finding& each) { return each.severity == severity; });
}

/// Those of one system, errors first, otherwise in the report's order.
Findings findingsOf(const CheckReport& report, const std::string& system) {
    Findings found;
    for (const Finding& finding : report.findings) {
        if (finding.system == system) {
            found.push_back(&finding);
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const Finding* a, const Finding* b) {
        return static_cast<int>(a->severity) < static_cast<int>(b->severity);
    });
    return found;
}

/// The systems in the order of the report, then those that only findings name.
std::vector<std::string> systemsOf(const CheckReport& report) {
    std::vector<std::string> names;
    const auto add = [&names](const std::string& name) {
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    };
    for (const SystemFigures& figures : report.systems) {
        add(figures.name);
    }
    for (const Finding& finding : report.findings) {
        add(finding.system);
    }
    return names;
}

std::string handlesCell(const std::vector<AcDbObjectId>& ids) {
    std::string text;
    for (std::size_t i = 0; i < std::min(ids.size(), kHandlesShown); ++i) {
        text += (i == 0 ? "" : " ") + handleText(ids[i]);
    }
    if (ids.size() > kHandlesShown) {
        text += fmt::format(" and {} more", ids.size() - kHandlesShown);
    }
    return text;
}

std::string place(const AcGePoint3d& point) {
    return fmt::format("{:.2f}, {:.2f}", point.x, point.y);
}

std::string amount(const std::optional<double>& number, const std::string& unit) {
    if (!number) {
        return "";
    }
    return fmt::format("{:.6g}{}{}", *number, unit.empty() ? "" : " ", unit);
}

/// Each row of the table with the finding's sentence below it.
std::string withSentences(const std::string& table, const Findings& findings) {
    std::istringstream lines(table);
    std::string text;
    std::string line;
    for (int head = 0; head < 2 && std::getline(lines, line); ++head) {
        text += line + '\n';
    }
    for (const Finding* finding : findings) {
        std::getline(lines, line);
        text += line + "\n    " + finding->sentence + '\n';
    }
    return text;
}

std::string findingsText(const Findings& findings) {
    TextTable table(
        {{"Severity"}, {"Finding"}, {"At"}, {"Measured", true}, {"Limit", true}, {"Entities"}});
    for (const Finding* finding : findings) {
        table.add({severityName(finding->severity), finding->code, place(finding->place),
                   amount(finding->measured, finding->unit), amount(finding->limit, finding->unit),
                   handlesCell(finding->entities)});
    }
    return withSentences(table.text(), findings);
}

std::string lengthsText(const SystemFigures& figures) {
    TextTable table({{"Size"}, {"Material"}, {"Segments", true}, {"Length m", true}});
    for (const LaidLength& laid : figures.lengths) {
        table.add({fmt::format("DN{}", laid.diameter), laid.material, std::to_string(laid.runs),
                   fmt::format("{:.2f}", laid.length)});
    }
    return figures.lengths.empty() ? std::string() : table.text();
}

std::string networksText(const CheckReport& report, const std::string& system) {
    TextTable table(
        {{"Network", true}, {"Root"}, {"Nodes", true}, {"Segments", true}, {"Length m", true}});
    bool any = false;
    for (std::size_t i = 0; i < report.networks.size(); ++i) {
        const CheckedNetwork& network = report.networks[i];
        if (network.system == system) {
            any = true;
            table.add({std::to_string(i), handleText(network.root),
                       std::to_string(blocksOf(network)), std::to_string(network.runs.size()),
                       fmt::format("{:.2f}", lengthOf(network))});
        }
    }
    return any ? table.text() : std::string();
}

std::string extremeText(const char* name, const std::optional<ExtremePoint>& extreme) {
    if (!extreme) {
        return "";
    }
    return fmt::format("{} {:.3f} m at {}, pipe {}\n", name, extreme->elevation,
                       place(extreme->place), handleText(extreme->entity));
}

std::string systemTitle(const std::string& name) {
    return name.empty() ? "Without a system" : "System " + name;
}

std::string figuresText(const CheckReport& report, const SystemFigures& figures) {
    std::string text = fmt::format(
        "{}: {}{}{}, {}, {}, {}, {}, {:.2f} m\n", systemTitle(figures.name), flowName(figures.flow),
        figures.flag.empty() ? "" : ", flag ", figures.flag,
        counted(figures.pipes, "pipe", "pipes"), counted(figures.wells, "well", "wells"),
        counted(figures.tanks, "tank", "tanks"), counted(figures.networks, "network", "networks"),
        figures.length);
    for (const std::string& part :
         {networksText(report, figures.name), lengthsText(figures),
          extremeText("Lowest ", figures.lowest) + extremeText("Highest", figures.highest)}) {
        text += part.empty() ? "" : '\n' + part;
    }
    return text;
}

} // namespace

std::string findingsSummary(const CheckReport& report) {
    if (report.findings.empty()) {
        return "no findings";
    }
    std::string text =
        counted(static_cast<std::ptrdiff_t>(report.findings.size()), "finding", "findings");
    const char* separator = ": ";
    constexpr std::tuple<Severity, const char*, const char*> kinds[] = {
        {Severity::error, "error", "errors"},
        {Severity::warning, "warning", "warnings"},
        {Severity::note, "note", "notes"}};
    for (const auto& [severity, one, many] : kinds) {
        if (const std::ptrdiff_t count = countOf(report, severity); count > 0) {
            text += separator + counted(count, one, many);
            separator = ", ";
        }
    }
    return text;
}

std::string checkTable(const std::string& drawing, const CheckReport& report) {
    std::string text = fmt::format("{}: {}\n", drawing, findingsSummary(report));
    for (const std::string& system : systemsOf(report)) {
        if (const Findings findings = findingsOf(report, system); !findings.empty()) {
            text += fmt::format("\n{}: {}\n\n", systemTitle(system),
                                counted(static_cast<std::ptrdiff_t>(findings.size()), "finding",
                                        "findings")) +
                    findingsText(findings);
        }
    }
    for (const SystemFigures& figures : report.systems) {
        text += '\n' + figuresText(report, figures);
    }
    return text;
}

} // namespace pipenet
