#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace database_test {

struct Shape {
    unsigned number;
    std::string name;
    std::string strokes = std::string("\x10\x00", 2); ///< one unit to the right
};

/// Two bytes, the lower one first.
inline std::string twoBytes(std::size_t value) {
    return {static_cast<char>(value & 255U), static_cast<char>(value >> 8U)};
}

/// A compiled shape file.
inline std::string shapeFileBytes(const std::vector<Shape>& shapes) {
    std::string index;
    std::string definitions;
    unsigned least = 65535;
    unsigned greatest = 0;
    for (const Shape& shape : shapes) {
        const std::string definition = shape.name + '\0' + shape.strokes;
        index += twoBytes(shape.number) + twoBytes(definition.size());
        definitions += definition;
        least = std::min(least, shape.number);
        greatest = std::max(greatest, shape.number);
    }
    return "Test shapes V1.0\r\n\x1A" + twoBytes(least) + twoBytes(greatest) +
           twoBytes(shapes.size()) + index + definitions + "EOF";
}

} // namespace database_test
