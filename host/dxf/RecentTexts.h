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

    /// Writes the text of `bytes`.
    void read(std::string_view bytes, CString& text);

private:
    /// Longer texts are rarely said twice.
    static constexpr std::size_t kLongest = 32;
    static constexpr std::size_t kPlaces = 1024;

    /// The bytes are kept here: where they lie in the file, nothing else is being read any more.
    struct Known {
        std::array<char, kLongest> bytes{};
        std::size_t length = 0;
        CString text;

        bool isOf(std::string_view other) const {
            return std::string_view(bytes.data(), length) == other;
        }
    };

    CString shortText(std::string_view bytes) const;

    const TextDecoder& decoder_;
    /// By a number made of the bytes; of two texts in one place the later stays.
    std::array<Known, kPlaces> known_;
};

} // namespace host_dxf
