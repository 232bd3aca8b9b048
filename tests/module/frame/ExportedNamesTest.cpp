// The shared library offers the boundary and nothing else. The kept list is the boundary as the
// sibling modules link to it, in the spelling of the demangler, one name a line.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace module_tests {
namespace {

using Names = std::set<std::string>;

/// The names in a listing of `nm -D --defined-only -C`: an address, a type letter, the name.
/// Constructors and destructors stand there in several forms of one spelling, which count once.
Names namesOfListing(std::istream& listing) {
    Names names;
    std::string line;
    while (std::getline(listing, line)) {
        std::istringstream fields(line);
        std::string address;
        std::string type;
        fields >> address >> type >> std::ws;
        std::string name;
        if (std::getline(fields, name)) {
            names.insert(name);
        }
    }
    return names;
}

Names namesOfLibrary(const std::string& path) {
    const std::string command = std::string(TKVLT_NM) + " -D --defined-only -C '" + path + "'";
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return {};
    }
    std::string text;
    std::array<char, 4096> part{};
    std::size_t count = 0;
    while ((count = std::fread(part.data(), 1, part.size(), pipe)) > 0) {
        text.append(part.data(), count);
    }
    EXPECT_EQ(::pclose(pipe), 0) << command;
    std::istringstream listing(text);
    return namesOfListing(listing);
}

/// Lines of the kept list; `#` begins a comment.
Names namesOfKeptList() {
    std::ifstream file(std::string(TKVLT_TESTS_DIR) + "/module/exports.txt");
    EXPECT_TRUE(file.is_open());
    Names names;
    std::string line;
    while (std::getline(file, line)) {
        if (!line.empty() && line[0] != '#') {
            names.insert(line);
        }
    }
    return names;
}

std::string missingFrom(const Names& all, const Names& some) {
    std::vector<std::string> missing;
    std::set_difference(all.begin(), all.end(), some.begin(), some.end(),
                        std::back_inserter(missing));
    std::string text;
    for (const std::string& name : missing) {
        text += name + "\n";
    }
    return text;
}

TEST(ExportedNames, ListingIsReadWithSpacesInNames) {
    std::istringstream listing("0000000000001230 T PelRedraw()\n"
                               "0000000000001240 V vtable for Well\n"
                               "0000000000001250 T _Pipe::_Pipe(_Pipe&)\n"
                               "0000000000001250 T _Pipe::_Pipe(_Pipe&)\n");
    EXPECT_EQ(namesOfListing(listing),
              (Names{"PelRedraw()", "vtable for Well", "_Pipe::_Pipe(_Pipe&)"}));
}

TEST(ExportedNames, DifferenceNamesWhatIsMissing) {
    EXPECT_EQ(missingFrom({"a()", "b()"}, {"b()", "c()"}), "a()\n");
    EXPECT_EQ(missingFrom({"a()"}, {"a()"}), "");
}

TEST(ExportedNames, LibraryOffersEveryNameOfTheBoundary) {
    EXPECT_EQ(missingFrom(namesOfKeptList(), namesOfLibrary(TKVLT_MODULE_LIBRARY)), "");
}

TEST(ExportedNames, LibraryOffersNoOtherName) {
    EXPECT_EQ(missingFrom(namesOfLibrary(TKVLT_MODULE_LIBRARY), namesOfKeptList()), "");
}

} // namespace
} // namespace module_tests
