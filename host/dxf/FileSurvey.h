#pragma once

#include "dxf/DxfFailure.h"
#include "dxf/DxfSource.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host_dxf {

/// What has to be known of a drawing file before its first object is read.
struct FileSurvey {
    /// A layout of the drawing and the block record that holds its entities.
    struct Layout {
        std::string_view name; ///< undecoded
        std::uint64_t block = 0;
    };

    std::string_view version;     ///< $ACADVER, empty when the file has none
    std::string_view codePage;    ///< $DWGCODEPAGE, empty when the file has none
    std::uint64_t handleSeed = 0; ///< $HANDSEED, 0 when the file has none
    /// The greatest handle that any record has. New objects take handles above it, else one of them
    /// would bear the handle of an object further on.
    std::uint64_t highestHandle = 0;
    /// Names of the block definitions in file order, undecoded: in old files a reference may stand
    /// before its definition, and nothing but the definition tells that the name is known.
    std::vector<std::string_view> blocks;
    std::vector<Layout> layouts; ///< in the order of their objects, model space included
    /// Where the table of registered applications starts. Records before it carry extended data of
    /// applications that it lists.
    bool hasApplicationTable = false;
    FilePosition applicationTable;

    /// Texts are UTF-8 whatever the code page says.
    bool isUtf8 = false;
};

/// Goes through the file once without interpreting values. Damage ends the survey silently: the
/// reader that follows reports it. Views point into the source. Linear, at most a quarter of the
/// time that reading takes.
FileSurvey surveyFile(const DxfSource& source);

} // namespace host_dxf
