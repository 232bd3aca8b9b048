#include "TextTable.h"

#include "TextWidth.h"

#include <algorithm>
#include <fmt/format.h>

namespace pipenet {

namespace {

constexpr auto kGap = "  ";

void appendCell(std::string& line, const std::string& cell, int width, bool right) {
    const std::string blanks(static_cast<std::size_t>(width - textColumns(cell)), ' ');
    line += right ? blanks + cell : cell + blanks;
}

void endLine(std::string& text, std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + '\n';
}

} // namespace

std::string counted(std::ptrdiff_t number, const char* one, const char* many) {
    return fmt::format("{} {}", number, number == 1 ? one : many);
}

void TextTable::add(std::vector<std::string> cells) {
    for (std::string& cell : cells) {
        std::replace_if(
            cell.begin(), cell.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    }
    rows_.push_back(std::move(cells));
}

std::vector<int> TextTable::widths() const {
    std::vector<int> found;
    for (const Column& column : columns_) {
        found.push_back(textColumns(column.title));
    }
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < found.size(); ++i) {
            found[i] = std::max(found[i], textColumns(row[i]));
        }
    }
    return found;
}

std::string TextTable::text() const {
    const std::vector<int> width = widths();
    std::vector<std::string> titles;
    std::vector<std::string> rules;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        titles.push_back(columns_[i].title);
        rules.emplace_back();
        for (int column = 0; column < width[i]; ++column) {
            rules.back() += "─";
        }
    }
    std::string text;
    appendRow(text, titles, width);
    appendRow(text, rules, width);
    for (const auto& row : rows_) {
        appendRow(text, row, width);
    }
    return text;
}

void TextTable::appendRow(std::string& text, const std::vector<std::string>& cells,
                          const std::vector<int>& width) const {
    std::string line;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (width[i] > 0) {
            line += line.empty() ? "" : kGap;
            appendCell(line, cells[i], width[i], columns_[i].right);
        }
    }
    endLine(text, line);
}

} // namespace pipenet
