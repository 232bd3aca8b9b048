#pragma once

#include <ft2build.h>

#include FT_FREETYPE_H

#include <memory>
#include <string>

namespace host {

struct FaceDeleter {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Face = std::unique_ptr<FT_FaceRec_, FaceDeleter>;

/// Opens a face of a font file; nullptr when it is none or has no outlines. Faces must not be used
/// by two threads at a time.
Face openFace(const std::string& path, long index);

} // namespace host
