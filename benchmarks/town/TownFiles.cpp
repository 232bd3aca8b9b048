#include "town/TownFiles.h"

#include "town/DrawingFrame.h"
#include "town/TagText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <stdexcept>

namespace benchmark_town {

namespace {

/// Entities are gathered up to so many bytes before they go to the file.
constexpr std::size_t kChunk = std::size_t{1} << 20U;

/// A file that is there under its name only when it is whole.
class OutputFile {
public:
    explicit OutputFile(const std::filesystem::path& path)
        : path_(path), unfinished_(path.string() + ".part"),
          stream_(unfinished_, std::ios::binary) {}

    void write(const std::string& text) {
        stream_.write(text.data(), static_cast<std::streamsize>(text.size()));
    }
    void finish() {
        stream_.close();
        std::error_code failed;
        if (stream_) {
            std::filesystem::rename(unfinished_, path_, failed);
        }
        if (!stream_ || failed) {
            throw std::runtime_error("cannot write " + path_.string());
        }
    }

private:
    std::filesystem::path path_;
    std::filesystem::path unfinished_;
    std::ofstream stream_;
};

template<class Number>
std::string numberText(Number value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

/// Heights in millimetres, as people write them.
std::string heightText(double metres) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), metres,
                                   std::chars_format::fixed, 3)
                         .ptr;
    return {digits.data(), end};
}

void addText(TagText& tags, const char* key, const std::string& value) {
    tags.add(1001, key);
    tags.add(1000, value);
}

void beginEntity(TagText& tags, const char* kind, const std::string& handle,
                 const std::string& owner, const std::string& layer) {
    tags.add(0, kind);
    tags.add(5, handle);
    tags.add(330, owner);
    tags.add(100, "AcDbEntity");
    tags.add(8, layer);
}

void addCurve(TagText& tags, const TownPipe& pipe, const std::string& handle,
              const std::string& owner) {
    const std::string layer = std::string(systemName(pipe.system)) + "管";
    if (pipe.bulge == 0.0) {
        beginEntity(tags, "LINE", handle, owner, layer);
        tags.add(100, "AcDbLine");
        tags.point(10, pipe.start);
        tags.point(11, pipe.end);
        return;
    }
    beginEntity(tags, "LWPOLYLINE", handle, owner, layer);
    tags.add(100, "AcDbPolyline");
    tags.add(90, 2);
    tags.add(70, 0);
    tags.add(43, 0.0);
    tags.add(10, pipe.start.x);
    tags.add(20, pipe.start.y);
    tags.add(42, pipe.bulge);
    tags.add(10, pipe.end.x);
    tags.add(20, pipe.end.y);
}

void addPipe(TagText& tags, const TownPipe& pipe, const std::string& handle,
             const std::string& owner) {
    constexpr int concreteFrom = 600;
    addCurve(tags, pipe, handle, owner);
    addText(tags, "管道系统", systemName(pipe.system));
    addText(tags, "管径", std::to_string(pipe.diameter));
    addText(tags, "管材", pipe.diameter < concreteFrom ? "HDPE" : "钢筋混凝土管");
    addText(tags, "坡度", numberText(pipe.slope));
    addText(tags, "起点标高", heightText(pipe.startHeight));
    addText(tags, "终点标高", heightText(pipe.endHeight));
    addText(tags, "水流方向", pipe.flowsToEnd ? "SE" : "ES");
}

void addWell(TagText& tags, const TownWell& well, const std::string& handle,
             const std::string& owner) {
    const double diameter = 2.0 * well.radius;
    beginEntity(tags, "INSERT", handle, owner, std::string(systemName(well.system)) + "井");
    tags.add(100, "AcDbBlockReference");
    tags.add(2, well.block);
    tags.point(10, well.place);
    tags.add(41, diameter);
    tags.add(42, diameter);
    tags.add(43, 1.0);
    tags.add(50, 0.0);
    addText(tags, "管井系统", systemName(well.system));
    addText(tags, "管井编号", well.number);
    addText(tags, "井的直径", numberText(diameter));
}

struct Bounds {
    Place low{1e300, 1e300};
    Place high{-1e300, -1e300};

    void include(const Place& place) {
        low = {std::min(low.x, place.x), std::min(low.y, place.y)};
        high = {std::max(high.x, place.x), std::max(high.y, place.y)};
    }
};

Bounds boundsOf(const Town& town) {
    Bounds bounds;
    for (const TownWell& well : town.wells) {
        bounds.include(well.place);
    }
    for (const TownPipe& pipe : town.pipes) {
        bounds.include(pipe.start);
        bounds.include(pipe.end);
    }
    return bounds;
}

std::string row(std::initializer_list<std::string> cells) {
    std::string line;
    for (const std::string& cell : cells) {
        line += line.empty() ? cell : "," + cell;
    }
    return line + "\n";
}

std::string systemRow(const Town& town, const TownSystem& system) {
    return row({"system", systemName(system.system), system.startsAtPipe ? "pipe" : "well",
                system.startsAtPipe ? pipeHandle(town, system.start) : wellHandle(system.start),
                numberText(system.point.x), numberText(system.point.y),
                pipeHandle(town, system.farPipe), std::to_string(system.nodes),
                std::to_string(system.segments), std::to_string(system.valves),
                std::to_string(system.meters)});
}

std::string wellRow(const TownWell& well, const std::string& handle) {
    const std::string parent =
        well.parent == TownWell::kNone ? "0" : wellHandle(static_cast<std::size_t>(well.parent));
    return row({"well", handle, numberText(well.place.x), numberText(well.place.y),
                numberText(well.radius), parent});
}

std::string pipeRow(const TownPipe& pipe, const std::string& handle) {
    return row({"pipe", handle, numberText(pipe.start.x), numberText(pipe.start.y),
                numberText(pipe.end.x), numberText(pipe.end.y)});
}

} // namespace

void writeDrawing(const Town& town, const std::filesystem::path& path) {
    const Bounds bounds = boundsOf(town);
    DrawingFrame frame(bounds.low, bounds.high, kFirstHandle + town.order.size());
    OutputFile file(path);
    TagText tags;
    const auto flush = [&] {
        file.write(tags.text());
        tags.clear();
    };
    frame.addHead(tags);
    for (const std::size_t item : town.order) {
        if (item < town.wells.size()) {
            addWell(tags, town.wells[item], wellHandle(item), frame.modelSpace());
        } else {
            const std::size_t pipe = item - town.wells.size();
            addPipe(tags, town.pipes[pipe], pipeHandle(town, pipe), frame.modelSpace());
        }
        if (tags.text().size() > kChunk) {
            flush();
        }
    }
    frame.addTail(tags);
    flush();
    file.finish();
}

void writeTruth(const Town& town, const std::filesystem::path& path) {
    OutputFile file(path);
    std::string rows;
    for (const TownSystem& system : town.systems) {
        rows += systemRow(town, system);
    }
    for (const std::size_t item : town.order) {
        if (item < town.wells.size()) {
            rows += wellRow(town.wells[item], wellHandle(item));
        } else {
            const std::size_t pipe = item - town.wells.size();
            rows += pipeRow(town.pipes[pipe], pipeHandle(town, pipe));
        }
        if (rows.size() > kChunk) {
            file.write(rows);
            rows.clear();
        }
    }
    file.write(rows);
    file.finish();
}

} // namespace benchmark_town
