#include "database/PatternBuilder.h"

#include "database/ReadSupportFile.h"
#include "database/ShapeFile.h"
#include "platform/WideCharacters.h"

#include <memory>
#include <optional>

namespace host_db {
namespace {

using Dash = LinetypeDefinition::Dash;
using Mark = LinetypeDefinition::Mark;

/// A shape file is named with its ending or without.
std::wstring shapeFileNamed(const std::wstring& name) {
    const std::size_t folder = name.find_last_of(L"/\\");
    const std::size_t point = name.find_last_of(L'.');
    const bool hasEnding =
        point != std::wstring::npos && (folder == std::wstring::npos || point > folder);
    return hasEnding ? name : name + L".shx";
}

/// The style record that stands for a shape file; null when the drawing has none yet.
AcDbObjectId shapeStyleOf(const AcDbSymbolTable& styles, const std::wstring& file) {
    for (const AcDbObjectId id : styles.recordIds()) {
        const auto* const style = peek<AcDbTextStyleTableRecord>(id);
        if (style != nullptr && style->isShapeFile() &&
            host_text::compareNoCase(style->fontFile(), file.c_str()) == 0) {
            return id;
        }
    }
    return {};
}

AcDbObjectId addShapeStyle(AcDbTextStyleTable& table, const std::wstring& file) {
    auto style = std::make_unique<AcDbTextStyleTableRecord>();
    style->setIsShapeFile(true);
    style->setFileName(file.c_str());
    AcDbObjectId id;
    if (table.add(id, style.get()) == Acad::eOk) {
        style.release()->close();
    }
    return id;
}

} // namespace

Acad::ErrorStatus PatternBuilder::add(const Dash& read) {
    LinetypeDash& dash = dashes_.emplace_back();
    dash.length = read.length;
    if (read.mark == Mark::None) {
        return Acad::eOk;
    }
    dash.flags = (read.mark == Mark::Text ? LinetypeDash::kText : LinetypeDash::kShape) |
                 (read.isAbsolute ? LinetypeDash::kAbsoluteRotation : 0) |
                 (read.isUpright ? LinetypeDash::kUpright : 0);
    dash.scale = read.scale;
    dash.rotation = read.rotation;
    dash.offset = {read.x, read.y};
    return read.mark == Mark::Text ? findText(read, dash) : findShapeOf(read, dash);
}

Acad::ErrorStatus PatternBuilder::findText(const Dash& read, LinetypeDash& dash) const {
    dash.text = read.text.c_str();
    dash.style = styles_.find(read.style.c_str());
    return dash.style.isNull() ? Acad::eInvalidKey : Acad::eOk;
}

Acad::ErrorStatus PatternBuilder::findShapeOf(const Dash& read, LinetypeDash& dash) {
    const std::wstring file = shapeFileNamed(read.style);
    std::string bytes;
    const Acad::ErrorStatus status = readSupportFile(file, bytes);
    if (status != Acad::eOk) {
        return status;
    }
    const std::optional<std::uint16_t> number = findShape(bytes, read.text);
    if (!number) {
        return Acad::eFileNotFound;
    }
    dash.shapeNumber = *number;
    shapes_.push_back({dashes_.size() - 1, file});
    return Acad::eOk;
}

Acad::ErrorStatus PatternBuilder::settle() {
    if (shapes_.empty()) {
        return Acad::eOk;
    }
    AcDbTextStyleTable* table = nullptr;
    const Acad::ErrorStatus opened = database_.getSymbolTable(table, AcDb::kForWrite);
    if (opened != Acad::eOk) {
        return opened;
    }
    for (const Shape& shape : shapes_) {
        const AcDbObjectId known = shapeStyleOf(*table, shape.file);
        dashes_[shape.dash].style = known.isNull() ? addShapeStyle(*table, shape.file) : known;
    }
    table->close();
    return Acad::eOk;
}

} // namespace host_db
