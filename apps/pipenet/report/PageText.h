#pragma once

#include <span>
#include <string_view>

namespace pipenet {

/// The page of the report with its style and script, up to where the data of the drawing goes, and
/// from there on, each in pieces that follow one another. Made from the files in `page/` when the
/// program is built.
extern const std::span<const std::string_view> kPageHead;
extern const std::span<const std::string_view> kPageTail;

} // namespace pipenet
