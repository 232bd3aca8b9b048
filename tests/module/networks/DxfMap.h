#pragma once

#include "module/support/DrawingBuilder.h"

#include <map>
#include <string>

namespace module_tests {

/// A place in plan, drawing units.
struct Place {
    double x;
    double y;
};

/// Texts of a pipe on a map, UTF-8; what is empty is not written.
struct MapPipe {
    std::string system = "污水";
    std::string flow = "SE";
    std::string startElevation = {};
    std::string endElevation = {};
    std::string diameter = "300";
    double bulge = 0.0; ///< not 0: a polyline of one arc
};

struct MapWell {
    std::string diameter = "1"; ///< metres
    std::string system = "污水";
    bool square = false;
};

/// The text of a DXF drawing that is made from named wells, tanks and pipes.
///
/// Entities stand in the file in the order of the calls, with handles that count up from 100. A
/// well's name is its number too.
class DxfMap {
public:
    void well(const std::string& name, Place at, const MapWell& texts = {});
    /// A tank that covers the box from `min` to `max` and is inserted at `min`. It carries both
    /// names of a tank, with `length` (millimetres) as its length.
    void tank(const std::string& name, Place min, Place max, const std::string& length = "");
    void pipe(const std::string& name, Place from, Place to, const MapPipe& texts = {});

    std::string text() const;
    /// The handle of an entity, upper-case hexadecimal.
    std::string handle(const std::string& name) const;
    /// The name of the entity with that handle.
    std::string name(const std::string& handle) const;

private:
    void begin(const std::string& name, const char* kind, const char* subclass);
    void group(int code, const std::string& value);
    void point(int code, Place at);
    void number(int code, double value);
    void xdata(const std::string& key, const std::string& value);

    int nextHandle_ = 0x100;
    std::string entities_;
    std::map<std::string, std::string> handles_;
    std::map<std::string, std::string> names_;
};

} // namespace module_tests
