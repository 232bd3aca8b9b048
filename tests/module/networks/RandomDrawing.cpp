#include "module/networks/RandomDrawing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace module_tests {

namespace {

constexpr double kGrid = 0.125;

double onGrid(double value) {
    return std::round(value / kGrid) * kGrid;
}

AcGePoint3d onGrid(const AcGePoint3d& point) {
    return {onGrid(point.x), onGrid(point.y), 0.0};
}

/// The same for two points that are the same, as good as unrelated for two that differ.
double heightAt(const AcGePoint3d& point, int relief) {
    const auto column = static_cast<long>(std::floor(point.x / kGrid));
    const auto row = static_cast<long>(std::floor(point.y / kGrid));
    const auto mixed = static_cast<std::uint32_t>(column * 7919 + row * 104729) * 2654435761U;
    return (mixed >> 16) % static_cast<std::uint32_t>(relief + 1) * kGrid;
}

} // namespace

AcGePoint3d Motion::operator()(const AcGePoint3d& point) const {
    AcGePoint3d moved = point;
    for (int turn = 0; turn < quarterTurns; ++turn) {
        moved = {-moved.y, moved.x, moved.z};
    }
    const double height = relief == 0 ? moved.z : moved.z + heightAt(point, relief);
    return {moved.x + shiftX, moved.y + shiftY, height};
}

RandomDrawing::RandomDrawing(std::uint32_t seed) : state_(seed * 2654435761U + 1U) {
    addTree(3 + upTo(5));
    addTanks(upTo(3));
    addNoise(oneIn(2) ? upTo(3) : upTo(9));
    shuffle();
}

/// A linear congruential generator (Numerical Recipes), so that all machines draw the same.
int RandomDrawing::upTo(int count) {
    state_ = state_ * 1664525U + 1013904223U;
    return static_cast<int>((state_ >> 8) % static_cast<std::uint32_t>(count));
}

AcGePoint3d RandomDrawing::anywhere() {
    return {upTo(193) * kGrid, upTo(193) * kGrid, 0.0};
}

AcGePoint3d RandomDrawing::nearAWell() {
    const AcGePoint3d& at =
        wells_[static_cast<std::size_t>(upTo(static_cast<int>(wells_.size())))].at;
    return {at.x + (upTo(9) - 4) * kGrid, at.y + (upTo(9) - 4) * kGrid, 0.0};
}

double RandomDrawing::bulge() {
    constexpr double bulges[] = {1.0, -1.0, 0.5, -0.25, 0.125};
    return oneIn(5) ? bulges[upTo(5)] : 0.0;
}

void RandomDrawing::addTree(int wells) {
    for (int i = 0; i < wells; ++i) {
        wells_.push_back({anywhere(), 1 + upTo(3), oneIn(4), oneIn(6)});
        if (i > 0) {
            addRun(wells_[static_cast<std::size_t>(upTo(i))].at, wells_.back().at);
        }
        if (oneIn(4)) { // one that overlaps it
            wells_.push_back({nearAWell(), 1 + upTo(3), oneIn(4), oneIn(6)});
        }
    }
}

/// A run of one to three pieces with gaps and bends of a step of the grid or two.
void RandomDrawing::addRun(const AcGePoint3d& from, const AcGePoint3d& to) {
    const int pieces = 1 + upTo(3);
    AcGePoint3d begin = from;
    for (int i = 1; i <= pieces; ++i) {
        const AcGePoint3d end = onGrid(from + (to - from) * (static_cast<double>(i) / pieces));
        Pipe pipe{begin, end, bulge(), oneIn(12)};
        if (oneIn(2)) {
            std::swap(pipe.from, pipe.to);
        }
        pipes_.push_back(pipe);
        begin = oneIn(2) ? end : AcGePoint3d(end.x + (upTo(5) - 2) * kGrid, end.y, 0.0);
    }
}

void RandomDrawing::addNoise(int pipes) {
    for (int i = 0; i < pipes; ++i) {
        const AcGePoint3d from = oneIn(2) ? nearAWell() : anywhere();
        AcGePoint3d to = oneIn(2) ? nearAWell() : anywhere();
        if (oneIn(3)) {
            to.y = from.y; // colinear pipes and crossings at right angles
        }
        pipes_.push_back({from, to, bulge(), oneIn(8)});
    }
}

void RandomDrawing::addTanks(int tanks) {
    for (int i = 0; i < tanks; ++i) {
        const AcGePoint3d min = oneIn(2) ? nearAWell() : anywhere();
        const AcGePoint3d max(min.x + 1 + upTo(4), min.y + 1 + upTo(4), 0.0);
        tanks_.push_back({oneIn(2) ? min : min + (max - min) * 0.5, min, max});
    }
}

void RandomDrawing::shuffle() {
    for (std::size_t i = pipes_.size(); i > 1; --i) {
        std::swap(pipes_[i - 1], pipes_[static_cast<std::size_t>(upTo(static_cast<int>(i)))]);
    }
}

std::vector<AcDbObjectId> RandomDrawing::draw(DrawingBuilder& drawing, const Motion& motion) const {
    constexpr const wchar_t* diameters[] = {L"0", L"0.5", L"1", L"2"};
    std::vector<AcDbObjectId> ids;
    for (const RandomWell& well : wells_) {
        const std::wstring number = L"W" + std::to_wstring(ids.size());
        ids.push_back(drawing.addWell(motion(well.at), {.diameter = diameters[well.size],
                                                        .number = number.c_str(),
                                                        .system = well.storm ? kStorm : kSewer,
                                                        .square = well.square}));
    }
    for (const Tank& tank : tanks_) {
        const AcGePoint3d a = motion(tank.min);
        const AcGePoint3d b = motion(tank.max);
        ids.push_back(drawing.addTankAt(motion(tank.at),
                                        {std::min(a.x, b.x), std::min(a.y, b.y), 0.0},
                                        {std::max(a.x, b.x), std::max(a.y, b.y), 0.0}));
    }
    for (const Pipe& pipe : pipes_) {
        const std::wstring number = std::to_wstring(ids.size());
        const std::wstring higher = L"8." + number;
        const std::wstring lower = L"7." + number;
        const bool falls = ids.size() % 2 == 0;
        const PipeTexts texts{.system = pipe.storm ? kStorm : kSewer,
                              .diameter = number.c_str(),
                              .flow = falls ? L"SE" : L"ES",
                              .slope = number.c_str(),
                              .startElevation = falls ? higher.c_str() : lower.c_str(),
                              .endElevation = falls ? lower.c_str() : higher.c_str(),
                              .material = number.c_str()};
        const AcGePoint3d from = motion(pipe.from);
        const AcGePoint3d to = motion(pipe.to);
        const bool isArc = pipe.bulge != 0.0 && !(from == to);
        ids.push_back(isArc ? drawing.addArcPipe(from, to, pipe.bulge, texts)
                            : drawing.addPipe(from, to, texts));
    }
    return ids;
}

AcDbObjectId endFor(const std::vector<AcDbObjectId>& ids, std::size_t start, std::uint32_t seed) {
    return (start + seed) % 3 == 0 ? AcDbObjectId() : ids[(start * 7 + 3) % ids.size()];
}

} // namespace module_tests
