#pragma once

#include "dxf/TextDecoder.h"
#include "platform/CString.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace host_dxf {

/// Decodes texts of a file and remembers the latest ones: a drawing says the same few names, sizes
/// and materials over and over, and the same bytes then give one text that all who ask share.
class RecentTexts {
public:
    /// `decoder` outlives this.
    explicit RecentTexts(const TextDecoder& decoder) : decoder_(decoder) {}

    /// Writes the text of `bytes`, which lie in the file that outlives this.
    void read(std::string_view bytes, CString& text);

private:
    struct Known {
        std::string_view bytes;
        CString text;
    };
    static constexpr std::size_t kPlaces = 1024;

    CString shortText(std::string_view bytes) const;

    const TextDecoder& decoder_;
    /// By a number made of the bytes; of two texts in one place the later stays.
    std::array<Known, kPlaces> known_;
};

} // namespace host_dxf
