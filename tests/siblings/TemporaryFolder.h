#pragma once

#include "platform/CString.h"
#include "platform/Encoding.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace sibling_tests {

/// A folder of its own for one test, removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "tkvlt-").string();
        name.append(6, 'X'); // replaced by what makes the name unique
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        path_ = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::string text() const { return path_.string(); }
    CString wide(const std::string& name) const {
        return CString(host_text::fromUtf8((path_ / name).string()));
    }

    /// Writes a file in place, its folders included.
    void write(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    std::string read(const std::string& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Number of files and folders directly in the folder.
    long entries() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }

private:
    std::filesystem::path path_;
};

} // namespace sibling_tests
