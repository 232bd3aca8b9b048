#include "platform/FontFace.h"

#include "platform/Encoding.h"
#include "platform/FontFile.h"
#include "platform/FontLibrary.h"
#include "platform/SupportFiles.h"

#include FT_ADVANCES_H

#include <cstdint>
#include <functional>
#include <utility>

namespace host {

struct FontFace::Opened {
    Face face;
};

/// The fonts of the process. Once opened they stay, since texts hold on to them.
struct FontFace::Shelf {
    std::mutex mutex;
    std::map<std::pair<std::string, long>, std::unique_ptr<FontFace>> opened;
    std::map<std::wstring, const FontFace*, std::less<>> byName;
    std::uint64_t version = 0; ///< of the support folders in which the names were looked for

    const FontFace* faceOf(const FontFile& file);
};

const FontFace* FontFace::Shelf::faceOf(const FontFile& file) {
    if (file.path.empty()) {
        return nullptr;
    }
    const auto [place, isNew] = opened.try_emplace({file.path, file.face});
    Face face = isNew ? openFace(file.path, file.face) : nullptr;
    if (face != nullptr) {
        auto made = std::make_unique<Opened>();
        made->face = std::move(face);
        place->second.reset(new FontFace(std::move(made)));
    }
    return place->second.get();
}

FontFace::FontFace(std::unique_ptr<Opened> opened) : opened_(std::move(opened)) {}

FontFace::~FontFace() = default;

const FontFace* FontFace::named(std::wstring_view name) {
    // Never destroyed: texts are measured to the end of the process.
    static auto* const shelf = new Shelf;
    const std::lock_guard lock(shelf->mutex);
    const std::uint64_t version = supportFoldersVersion();
    if (shelf->version != version) {
        shelf->byName.clear();
        shelf->version = version;
    }
    auto known = shelf->byName.find(name);
    if (known == shelf->byName.end()) {
        known = shelf->byName.emplace(name, shelf->faceOf(findFontFile(name))).first;
    }
    return known->second;
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
