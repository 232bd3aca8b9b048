#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace host {

/// The advances of an outline font, for measuring texts.
class FontFace {
public:
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;
    ~FontFace();

    /// The font that host::findFontFile finds under a name; nullptr when there is none. It is
    /// looked for once, and again after the support folders have changed; what was opened lives as
    /// long as the process. On any thread.
    static const FontFace* named(std::wstring_view name);

    /// How far the character moves the pen, in ems, without kerning; nothing for one that the font
    /// has no glyph of. On any thread. Cost: one look-up in the font, and in a map from then on.
    std::optional<double> advance(wchar_t character) const;

private:
    struct Opened;
    struct Shelf;

    explicit FontFace(std::unique_ptr<Opened> opened);

    mutable std::mutex mutex_;
    mutable std::map<wchar_t, std::optional<double>> advances_;
    std::unique_ptr<Opened> opened_;
};

} // namespace host
