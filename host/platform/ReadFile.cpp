#include "platform/ReadFile.h"

#include <array>
#include <cstdio>
#include <memory>

namespace host {
namespace {

struct FileCloser {
    // Nothing was written, so closing loses nothing.
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

} // namespace

std::optional<std::string> readFile(const std::string& path) {
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) {
        return std::nullopt;
    }
    std::string bytes;
    std::array<char, 65536> piece{};
    std::size_t count = piece.size();
    while (count == piece.size()) {
        count = std::fread(piece.data(), 1, piece.size(), file.get());
        bytes.append(piece.data(), count);
    }
    return std::ferror(file.get()) != 0 ? std::nullopt : std::optional(std::move(bytes));
}

} // namespace host
