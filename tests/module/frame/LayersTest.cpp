// The module stands on the C++ standard library and the platform's interface alone, and reaches the
// platform through one header.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace module_tests {
namespace {

namespace fs = std::filesystem;

const std::set<std::string> kStandardHeaders = {
    "algorithm",    "any",          "array",         "atomic",
    "bit",          "bitset",       "cassert",       "cctype",
    "cerrno",       "cfloat",       "charconv",      "chrono",
    "cinttypes",    "climits",      "cmath",         "compare",
    "concepts",     "cstdarg",      "cstddef",       "cstdint",
    "cstdio",       "cstdlib",      "cstring",       "cwchar",
    "cwctype",      "deque",        "exception",     "filesystem",
    "forward_list", "fstream",      "functional",    "initializer_list",
    "iomanip",      "ios",          "iosfwd",        "istream",
    "iterator",     "limits",       "list",          "locale",
    "map",          "memory",       "mutex",         "new",
    "numbers",      "numeric",      "optional",      "ostream",
    "queue",        "ranges",       "set",           "span",
    "sstream",      "stack",        "stdexcept",     "string",
    "string_view",  "system_error", "thread",        "tuple",
    "type_traits",  "typeinfo",     "unordered_map", "unordered_set",
    "utility",      "variant",      "vector",        "version"};

/// The text without comments; texts in quotes stay, for includes are among them.
std::string withoutComments(const std::string& text) {
    static const std::regex comments(R"(//[^\n]*|/\*[^]*?\*/)");
    return std::regex_replace(text, comments, "");
}

std::vector<std::string> matches(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator it(text.begin(), text.end(), expression), end; it != end; ++it) {
        found.push_back((*it)[1]);
    }
    return found;
}

/// What a source reaches for that it must not. `isDoor`: the one header that names the platform.
std::vector<std::string> offences(const std::string& source, const fs::path& moduleDir,
                                  bool isDoor) {
    const std::string text = withoutComments(source);
    std::vector<std::string> found;
    for (const std::string& header : matches(text, R"rx(#\s*include\s*"([^"]*)")rx")) {
        const bool own = fs::exists(moduleDir / header) && header.find("..") == std::string::npos;
        const bool platform = header == "EmbeddedHost.h" || header == "Siblings.h";
        if (!own && !(isDoor && platform)) {
            found.push_back("\"" + header + "\"");
        }
    }
    for (const std::string& header : matches(text, R"rx(#\s*include\s*<([^>]*)>)rx")) {
        if (kStandardHeaders.count(header) == 0) {
            found.push_back("<" + header + ">");
        }
    }
    for (const std::string& name : matches(text, R"rx(\b(host(?:_\w+)?|siblings)\s*::)rx")) {
        found.push_back(name + "::");
    }
    return found;
}

std::string read(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

using Found = std::vector<std::string>;

TEST(Layers, TheCheckFindsWhatIsForbidden) {
    const fs::path dir = TKVLT_MODULE_DIR;
    EXPECT_EQ(offences("#include \"database/AcDbLine.h\"\n", dir, false),
              Found{"\"database/AcDbLine.h\""});
    EXPECT_EQ(offences("#include \"EmbeddedHost.h\"\n", dir, false), Found{"\"EmbeddedHost.h\""});
    EXPECT_EQ(offences("#include \"../host/EmbeddedHost.h\"\n", dir, true),
              Found{"\"../host/EmbeddedHost.h\""});
    EXPECT_EQ(offences("#include <fmt/format.h>\n", dir, false), Found{"<fmt/format.h>"});
    EXPECT_EQ(offences("auto d = host::newDocument();", dir, false), Found{"host::"});
    EXPECT_EQ(offences("host_db::peek(id);", dir, false), Found{"host_db::"});
    EXPECT_EQ(offences("siblings::setSystemPath(x);", dir, false), Found{"siblings::"});
}

TEST(Layers, TheCheckLetsThroughWhatIsAllowed) {
    const fs::path dir = TKVLT_MODULE_DIR;
    EXPECT_EQ(offences("#include \"records/Pipe.h\"\n#include <vector>\n", dir, false), Found{});
    EXPECT_EQ(offences("#include \"EmbeddedHost.h\"\n#include \"Siblings.h\"\n", dir, true),
              Found{});
    EXPECT_EQ(offences("// as host::newDocument does\nplatform_crt::wcstod(a, b);", dir, false),
              Found{});
}

TEST(Layers, ModuleReachesForNothingElse) {
    const fs::path dir = TKVLT_MODULE_DIR;
    int sources = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(dir)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        ++sources;
        const bool isDoor = entry.path() == dir / "platform.h";
        EXPECT_EQ(offences(read(entry.path()), dir, isDoor), Found{}) << entry.path();
    }
    EXPECT_GT(sources, 50);
}

/// Names of the platform that a source uses: those with the prefixes of the platform's parts.
std::set<std::string> platformNames(const std::string& source) {
    static const std::string pattern =
        R"rx(\b((?:Ac(?:Db|Ge|Ap|Rx|Array)|acdb|aced|acut|acDoc|acrxSys|AFX_|Afx|CDyn|CRuntime|CWnd)rx"
        R"rx(|CString|CArray|CObject|CPoint|CRect|CKDP|RUNTIME_|Init(?=AcUi)|(?:load|Load)(?=LineType))rx"
        R"rx(|(?=RT(?:STR|NORM|NONE|POINT|ENAME|PICKS|LB|LE|REAL|SHORT|ERROR)\b))rx"
        R"rx(|(?:Open|Close)(?=UserFile)|(?:Get|Set)(?=DefaultValue|Xdata\b)|_wtoi)\w*|platform_\w+::\w+))rx";
    const std::vector<std::string> found = matches(withoutComments(source), pattern);
    return {found.begin(), found.end()};
}

std::set<std::string> platformNamesOfTheModule() {
    const fs::path dir = TKVLT_MODULE_DIR;
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(dir)) {
        const std::string extension = entry.path().extension();
        if (extension == ".h" || extension == ".cpp") {
            names.merge(platformNames(read(entry.path())));
        }
    }
    return names;
}

TEST(Layers, ThePlatformsNamesAreListed) {
    EXPECT_EQ(platformNames("AcDbLine* a; // acedRedraw\nacedSSGet(RTSTR); PelX(AcGe);"),
              (std::set<std::string>{"AcDbLine", "acedSSGet", "RTSTR", "AcGe"}));
    EXPECT_EQ(platformNames("platform_crt::wcstod(a, b);"),
              (std::set<std::string>{"platform_crt::wcstod"}));
    const std::string page =
        read(fs::path(TKVLT_MODULE_DIR) / "../docs/building-against-a-host.md");
    const std::vector<std::string> listed =
        matches(page, "`(?:[A-Za-z]+::)?(platform_\\w+::\\w+|\\w+)(?:::\\w+)?`");
    const std::set<std::string> known(listed.begin(), listed.end());
    const std::set<std::string> used = platformNamesOfTheModule();
    EXPECT_GT(used.size(), 50U);
    for (const std::string& name : used) {
        EXPECT_EQ(known.count(name), 1U) << name << " is used and not listed";
    }
}

} // namespace
} // namespace module_tests
