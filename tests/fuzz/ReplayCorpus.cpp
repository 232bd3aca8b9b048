// Runs a target over files instead of over what a fuzzer invents: each file named, and each file of
// each folder named. Fails when there is none, so that a lost corpus is seen.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> filesBehind(const std::filesystem::path& path) {
    std::vector<std::filesystem::path> files;
    if (!std::filesystem::is_directory(path)) {
        files.push_back(path);
        return files;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool replay(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file && !file.eof()) {
        std::fprintf(stderr, "%s: cannot be read\n", path.c_str());
        return false;
    }
    std::fprintf(stderr, "%s\n", path.c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

} // namespace

int main(int count, char** arguments) {
    std::size_t replayed = 0;
    for (int i = 1; i < count; ++i) {
        for (const std::filesystem::path& file : filesBehind(arguments[i])) {
            if (!replay(file)) {
                return 2;
            }
            ++replayed;
        }
    }
    std::printf("%zu inputs replayed\n", replayed);
    return replayed > 0 ? 0 : 1;
}
