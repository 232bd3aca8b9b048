#include "platform/FontLibrary.h"

namespace host {
namespace {

/// The library is one for the process; it goes when the process does, after all faces.
FT_Library library() {
    static auto* const instance = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr;
    }();
    return instance;
}

} // namespace

Face openFace(const std::string& path, long index) {
    FT_Face face = nullptr;
    if (library() == nullptr || FT_New_Face(library(), path.c_str(), index, &face) != 0) {
        return nullptr;
    }
    Face opened(face);
    return FT_IS_SCALABLE(face) && face->units_per_EM > 0 ? std::move(opened) : nullptr;
}

} // namespace host
