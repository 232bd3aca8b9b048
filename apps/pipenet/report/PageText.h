#pragma once

#include <string_view>

namespace pipenet {

/// The page of the report with its style and script, up to where the data of the drawing goes, and
/// from there on. Made from the files in `page/` when the program is built.
extern const std::string_view kPageHead;
extern const std::string_view kPageTail;

} // namespace pipenet
