#include "CheckReport.h"

namespace pipenet {

const char* severityName(Severity severity) {
    switch (severity) {
    case Severity::error:
        return "error";
    case Severity::warning:
        return "warning";
    default:
        return "note";
    }
}

} // namespace pipenet
