#include "platform/FontFile.h"

#include "platform/Encoding.h"
#include "platform/FontFamilyNames.h"
#include "platform/FontLibrary.h"
#include "platform/SupportFiles.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <system_error>
#include <vector>

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::wstring_view, 4> kEndings = {L".ttf", L".ttc", L".otf", L".otc"};

std::wstring lowered(std::wstring_view text) {
    std::wstring lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), host_text::lowerCase);
    return lower;
}

bool isFontName(const std::wstring& lower) {
    return std::any_of(kEndings.begin(), kEndings.end(),
                       [&](std::wstring_view ending) { return lower.ends_with(ending); });
}

std::vector<fs::path> fontFolders() {
    std::vector<fs::path> folders{"/usr/share/fonts", "/usr/local/share/fonts"};
    const char* const home = std::getenv("HOME");
    if (home != nullptr && *home != '\0') {
        folders.push_back(fs::path(home) / ".local/share/fonts");
        folders.push_back(fs::path(home) / ".fonts");
    }
    return folders;
}

using Files = std::map<std::wstring, std::string>;

/// `Walk` is an iterator over the entries of a folder, those of the folders in it included or not.
template<typename Walk>
void addFiles(const fs::path& folder, Files& files) {
    std::error_code error;
    Walk each(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && each != Walk(); each.increment(error)) {
        const std::string path = each->path().string();
        const std::wstring name = lowered(host_text::fromUtf8(each->path().filename().string()));
        std::error_code ignored;
        if (isFontName(name) && each->is_regular_file(ignored)) {
            // The same name in two places: one of them, whatever order the system lists them in.
            std::string& kept = files.emplace(name, path).first->second;
            kept = std::min(kept, path);
        }
    }
}

/// The font files of the system by their names in lower case; of one name in two folders the
/// earlier folder's counts.
const Files& systemFonts() {
    static const Files files = [] {
        Files all;
        for (const fs::path& folder : fontFolders()) {
            Files found;
            addFiles<fs::recursive_directory_iterator>(folder, found);
            all.merge(found);
        }
        return all;
    }();
    return files;
}

using Families = std::map<std::wstring, FontFile>;

/// A family may have several faces that are neither bold nor slanted; these names mark the one
/// that is meant by the family's name alone.
bool isPlain(const FT_FaceRec_& face) {
    const std::string_view style = face.style_name == nullptr ? "" : face.style_name;
    constexpr std::array<std::string_view, 4> kPlain = {"Regular", "Book", "Roman", "Normal"};
    return std::find(kPlain.begin(), kPlain.end(), style) != kPlain.end();
}

void addFamilies(const std::string& path, Families& families) {
    long count = 1;
    for (long index = 0; index < count; ++index) {
        const Face face = openFace(path, index);
        if (face == nullptr) {
            return;
        }
        count = face->num_faces;
        if (!isPlain(*face)) {
            continue;
        }
        for (const std::wstring& name : familyNames(face.get())) {
            families.emplace(lowered(name), FontFile{path, index});
        }
    }
}

/// The families of the fonts in the support folders, which change while a process runs.
Families supportFamilies() {
    Families all;
    for (const std::string& folder : supportFolders()) {
        Files found;
        addFiles<fs::directory_iterator>(folder, found);
        for (const auto& [name, path] : found) {
            addFamilies(path, all);
        }
    }
    return all;
}

FontFile familyIn(const Families& families, const std::wstring& lower) {
    const auto family = families.find(lower);
    return family == families.end() ? FontFile() : family->second;
}

const Families& systemFamilies() {
    static const Families families = [] {
        Families all;
        for (const auto& [name, path] : systemFonts()) {
            addFamilies(path, all);
        }
        return all;
    }();
    return families;
}

std::string fileNamed(std::wstring_view name) {
    const std::size_t separator = name.find_last_of(L"/\\");
    const std::wstring_view bare =
        name.substr(separator == std::wstring_view::npos ? 0 : separator + 1);
    for (const std::wstring_view each : {name, bare}) {
        std::string support = findSupportFile(each);
        if (!support.empty()) {
            return support;
        }
    }
    const auto found = systemFonts().find(lowered(bare));
    return found == systemFonts().end() ? std::string() : found->second;
}

} // namespace

FontFile findFontFile(std::wstring_view name) {
    if (name.empty()) {
        return {};
    }
    const std::wstring lower = lowered(name);
    if (isFontName(lower)) {
        return {fileNamed(name), 0};
    }
    for (const std::wstring_view ending : kEndings) {
        const std::string path = fileNamed(std::wstring(name) + std::wstring(ending));
        if (!path.empty()) {
            return {path, 0};
        }
    }
    // What has an ending of another kind names a file that is no outline font, and no family.
    if (lower.find(L'.') != std::wstring::npos) {
        return {};
    }
    FontFile family = familyIn(supportFamilies(), lower);
    return family.path.empty() ? familyIn(systemFamilies(), lower) : family;
}

} // namespace host
