#include "TextTable.h"

#include "TextWidth.h"

#include <algorithm>

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
    std::string text;
    std::string titles;
    std::string rule;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const std::string gap = i == 0 ? "" : kGap;
        titles += gap;
        appendCell(titles, columns_[i].title, width[i], columns_[i].right);
        rule += gap;
        for (int column = 0; column < width[i]; ++column) {
            rule += "─";
        }
    }
    endLine(text, titles);
    endLine(text, rule);
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            line += i == 0 ? "" : kGap;
            appendCell(line, row[i], width[i], columns_[i].right);
        }
        endLine(text, line);
    }
    return text;
}

} // namespace pipenet
