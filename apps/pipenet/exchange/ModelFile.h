#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pipenet {

/// One line of a model: its words without comment, and its number from 1 on.
struct ModelRow {
    int line = 0;
    std::vector<std::string> words;
};

/// A model's text as sections of rows. Section names count by their first four letters in any
/// case, as the engines read them; a section that stands twice goes on. Words in double quotes keep
/// their blanks.
class ModelFile {
public:
    /// Throws Failure with file, line and cause for a file that cannot be read, that holds null
    /// characters, or a row outside any section.
    explicit ModelFile(std::string path);

    const std::string& path() const { return path_; }
    bool has(const std::string& section) const { return sections_.count(section) > 0; }
    /// Rows of a section by its first four letters in capitals; none when it is missing.
    const std::vector<ModelRow>& rows(const std::string& section) const;
    /// The value of an option in capitals; the default when it is not given.
    std::string option(const std::string& name, const std::string& missing) const;

    /// Throws Failure when the row has fewer words.
    void need(const ModelRow& row, std::size_t words) const;
    /// The word at `place` as a finite number; `missing` stands for a word that is not there.
    /// Throws Failure for a word that is no number, and for one beyond 1e12 either way.
    double number(const ModelRow& row, std::size_t place) const;
    double number(const ModelRow& row, std::size_t place, double missing) const;
    /// The word at `place` as a name. Throws Failure when it is not UTF-8.
    const std::string& name(const ModelRow& row, std::size_t place) const;

    [[noreturn]] void fail(const std::string& cause) const;
    [[noreturn]] void fail(int line, const std::string& cause) const;

private:
    void readLine(std::string_view text, int line, std::vector<ModelRow>*& section);

    std::string path_;
    std::map<std::string, std::vector<ModelRow>> sections_;
};

/// ASCII letters as capitals.
std::string capitals(std::string text);

} // namespace pipenet
