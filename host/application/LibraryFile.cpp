#include "application/LibraryFile.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <link.h>
#include <vector>

namespace host {
namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);

template<class Record>
bool readAt(std::ifstream& file, std::uint64_t offset, Record* records, std::size_t count) {
    file.seekg(static_cast<std::streamoff>(offset));
    file.read(reinterpret_cast<char*>(records),
              static_cast<std::streamsize>(count * sizeof(Record)));
    return file.good();
}

/// A range of the file lies within its size; made so that no sum overflows.
bool fits(std::uint64_t offset, std::uint64_t length, std::uint64_t size) {
    return offset <= size && length <= size - offset;
}

} // namespace

bool isCutShort(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff end = file.tellg();
    Header header{};
    if (end < 0 || !readAt(file, 0, &header, 1) ||
        std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 ||
        header.e_phentsize != sizeof(Segment)) {
        return false;
    }
    const auto size = static_cast<std::uint64_t>(end);
    const std::uint64_t sections = std::uint64_t{header.e_shnum} * header.e_shentsize;
    std::vector<Segment> segments(header.e_phnum);
    if (!fits(header.e_shoff, sections, size) ||
        !readAt(file, header.e_phoff, segments.data(), segments.size())) {
        return true;
    }
    return std::any_of(segments.begin(), segments.end(), [&](const Segment& each) {
        return !fits(each.p_offset, each.p_filesz, size);
    });
}

} // namespace host
