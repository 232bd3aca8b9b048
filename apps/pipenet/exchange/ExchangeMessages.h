#pragma once

#include "Messages.h"

/// What import and export can say beside their answers. Numbers as in Messages.h.
namespace pipenet::messages {

inline constexpr Message kNeedsOption{121, "{} needs {}; see pipenet --help"};
inline constexpr Message kOutputIsSource{122, "{}: not written: it is the input itself"};

inline constexpr Message kModel{251, "{}: {}"};
inline constexpr Message kModelLine{252, "{}:{}: {}"};

inline constexpr Message kWrongFlow{
    451, "nothing imported from {}: a {} model needs a system that flows {}, and the settings say "
         "of '{}' that it {}; give another with --system, or check {}"};
inline constexpr Message kFormatIsGravity{
    452, "nothing exported from {}: its system '{}' is a pressure system, and SWMM takes networks "
         "that flow by gravity; use --to epanet, geojson or csv"};
inline constexpr Message kFormatIsPressure{
    453, "nothing exported from {}: its system '{}' flows by gravity, and EPANET takes networks "
         "under pressure; use --to swmm, geojson or csv"};

} // namespace pipenet::messages
