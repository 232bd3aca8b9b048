#pragma once

#include "platform/Encoding.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace font_test {

/// Advances of the characters in ems as another library reads them from the font file; -1 for one
/// that the font lacks. Fails the test when that library cannot be asked.
inline std::vector<double> advancesIn(const std::string& path, std::wstring_view characters) {
    std::string command =
        "/usr/bin/python3 -B '" TKVLT_TESTS_DIR "/host/platform/font_advances.py' '" + path + "'";
    for (const wchar_t character : characters) {
        char code[16];
        std::snprintf(code, sizeof code, " %x", static_cast<unsigned>(character));
        command += code;
    }
    std::vector<double> advances;
    FILE* const pipe = ::popen(command.c_str(), "r");
    double units = 0.0;
    if (pipe != nullptr && std::fscanf(pipe, "%lf", &units) == 1) {
        for (double advance = 0.0; std::fscanf(pipe, "%lf", &advance) == 1;) {
            advances.push_back(advance < 0.0 ? -1.0 : advance / units);
        }
    }
    EXPECT_EQ(pipe == nullptr ? -1 : ::pclose(pipe), 0) << command;
    EXPECT_EQ(advances.size(), characters.size()) << command;
    advances.resize(characters.size());
    return advances;
}

} // namespace font_test
