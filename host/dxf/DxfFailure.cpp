#include "dxf/DxfFailure.h"

namespace host_dxf {

std::string quotedForMessage(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::string quoted = "\"";
    for (const char byte : text.substr(0, longest)) {
        quoted += byte >= ' ' && byte <= '~' ? byte : '.';
    }
    quoted += text.size() > longest ? "...\"" : "\"";
    return quoted;
}

} // namespace host_dxf
