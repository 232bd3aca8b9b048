#include "platform/FontFace.h"

#include "platform/Encoding.h"
#include "platform/FontFile.h"
#include "platform/FontLibrary.h"

#include FT_ADVANCES_H

#include <utility>

namespace host {

struct FontFace::Opened {
    Face face;
};

FontFace::FontFace(std::unique_ptr<Opened> opened) : opened_(std::move(opened)) {}

FontFace::~FontFace() = default;

const FontFace* FontFace::named(std::wstring_view name) {
    // Never destroyed: texts are measured to the end of the process.
    static auto* const mutex = new std::mutex;
    static auto* const fonts = new std::map<std::wstring, std::unique_ptr<FontFace>>;
    const std::lock_guard lock(*mutex);
    const auto [place, isNew] = fonts->try_emplace(std::wstring(name));
    if (isNew) {
        const FontFile file = findFontFile(name);
        Face face = file.path.empty() ? nullptr : openFace(file.path, file.face);
        if (face != nullptr) {
            auto opened = std::make_unique<Opened>();
            opened->face = std::move(face);
            place->second.reset(new FontFace(std::move(opened)));
        }
    }
    return place->second.get();
}

std::optional<double> FontFace::advance(wchar_t character) const {
    const std::lock_guard lock(mutex_);
    const auto [place, isNew] = advances_.try_emplace(character);
    if (isNew) {
        auto* const face = opened_->face.get();
        const FT_UInt glyph = FT_Get_Char_Index(face, host_text::codeOf(character));
        FT_Fixed units = 0;
        if (glyph != 0 && FT_Get_Advance(face, glyph, FT_LOAD_NO_SCALE, &units) == 0) {
            place->second = static_cast<double>(units) / face->units_per_EM;
        }
    }
    return place->second;
}

} // namespace host
