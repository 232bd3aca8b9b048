#pragma once

#include <array>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace platform_test {

/// While it lives, the process writes numbers with a decimal comma. No installed locale is
/// needed: the C library loads one from a folder that is made here, with its one small file of
/// number rules. `works()` tells whether the library really took it.
class CommaLocale {
public:
    CommaLocale()
        : folder_(std::filesystem::temp_directory_path() /
                  ("comma-locale-" + std::to_string(getpid()))),
          before_(std::setlocale(LC_NUMERIC, nullptr)) {
        std::filesystem::create_directories(folder_ / "comma");
        writeRules(folder_ / "comma" / "LC_NUMERIC");
        setenv("LOCPATH", folder_.c_str(), 1);
        works_ = std::setlocale(LC_NUMERIC, "comma") != nullptr &&
                 std::string(std::localeconv()->decimal_point) == ",";
    }
    ~CommaLocale() {
        std::setlocale(LC_NUMERIC, before_.c_str());
        unsetenv("LOCPATH");
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    bool works() const { return works_; }

private:
    /// The file: a mark, the number of fields, where each begins, then the fields: decimal point,
    /// thousands separator, grouping, the two marks as wide characters, the character set.
    static void writeRules(const std::filesystem::path& path) {
        constexpr std::uint32_t fileMark = 0x20031115U ^ static_cast<std::uint32_t>(LC_NUMERIC);
        constexpr std::uint32_t begin = 8U * sizeof(std::uint32_t);
        const std::array<std::uint32_t, 8> head = {fileMark,  6,          begin,      begin + 4,
                                                   begin + 8, begin + 12, begin + 16, begin + 20};
        const std::string texts(",\0\0\0"
                                ".\0\0\0"
                                "\3\3\0\0"
                                ",\0\0\0"
                                ".\0\0\0"
                                "UTF-8\0",
                                26);
        std::ofstream file(path, std::ios::binary);
        file.write(reinterpret_cast<const char*>(head.data()), sizeof(head));
        file.write(texts.data(), static_cast<std::streamsize>(texts.size()));
    }

    std::filesystem::path folder_;
    std::string before_;
    bool works_ = false;
};

} // namespace platform_test
