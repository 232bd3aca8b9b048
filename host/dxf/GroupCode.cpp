#include "dxf/GroupCode.h"

#include <array>
#include <cstddef>

namespace host_dxf {

namespace {

constexpr std::size_t codeCount = 1072;
using KindTable = std::array<ValueKind, codeCount>;

struct CodeRange {
    std::size_t first;
    std::size_t last;
    ValueKind kind;
};

constexpr CodeRange ranges[] = {
    {0, 9, ValueKind::Text},        {5, 5, ValueKind::Handle},      {10, 59, ValueKind::Real},
    {60, 79, ValueKind::Int16},     {90, 99, ValueKind::Int32},     {100, 102, ValueKind::Text},
    {105, 105, ValueKind::Handle},  {110, 149, ValueKind::Real},    {160, 169, ValueKind::Int64},
    {170, 179, ValueKind::Int16},   {210, 239, ValueKind::Real},    {270, 289, ValueKind::Int16},
    {290, 299, ValueKind::Bool},    {300, 309, ValueKind::Text},    {310, 319, ValueKind::Chunk},
    {320, 369, ValueKind::Handle},  {370, 389, ValueKind::Int16},   {390, 399, ValueKind::Handle},
    {400, 409, ValueKind::Int16},   {410, 419, ValueKind::Text},    {420, 429, ValueKind::Int32},
    {430, 439, ValueKind::Text},    {440, 459, ValueKind::Int32},   {460, 469, ValueKind::Real},
    {470, 479, ValueKind::Text},    {480, 481, ValueKind::Handle},  {999, 999, ValueKind::Comment},
    {1000, 1003, ValueKind::Text},  {1004, 1004, ValueKind::Chunk}, {1005, 1005, ValueKind::Handle},
    {1006, 1009, ValueKind::Text},  {1010, 1059, ValueKind::Real},  {1060, 1070, ValueKind::Int16},
    {1071, 1071, ValueKind::Int32},
};

constexpr KindTable makeTable() {
    KindTable table{};
    for (const CodeRange& range : ranges) {
        for (std::size_t code = range.first; code <= range.last; ++code) {
            table[code] = range.kind;
        }
    }
    return table;
}

constexpr KindTable kinds = makeTable();

} // namespace

ValueKind valueKind(int code) {
    return code >= 0 && static_cast<std::size_t>(code) < codeCount
               ? kinds[static_cast<std::size_t>(code)]
               : ValueKind::Unspecified;
}

} // namespace host_dxf
