#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace pipenet {

/// "1 well", "2 wells".
std::string counted(std::ptrdiff_t number, const char* one, const char* many);

/// A table for a terminal: columns as wide as their widest cell, wide characters counted as two.
class TextTable {
public:
    struct Column {
        std::string title;
        bool right = false; ///< cells are aligned to the right
    };

    explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

    /// Adds a row with one cell a column, UTF-8; control characters are shown as blanks.
    void add(std::vector<std::string> cells);

    /// Titles, a rule and the rows, each line ended; no blanks at line ends. A column
    /// without a title and without content is left out.
    std::string text() const;

private:
    std::vector<int> widths() const;
    void appendRow(std::string& text, const std::vector<std::string>& cells,
                   const std::vector<int>& width) const;

    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

} // namespace pipenet
