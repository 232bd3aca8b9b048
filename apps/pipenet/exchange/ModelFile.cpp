#include "exchange/ModelFile.h"

#include "EmbeddedHost.h"
#include "exchange/ExchangeMessages.h"
#include "Failure.h"
#include "WholeFile.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <optional>

namespace pipenet {

namespace {

constexpr std::size_t kSectionLetters = 4;
constexpr double kLargest = 1e12; ///< far beyond any place, length or height on the globe

bool isBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\r' || letter == '\f' || letter == '\v';
}

/// The words of a line up to its comment.
std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    std::size_t at = 0;
    while (at < text.size() && text[at] != ';') {
        if (isBlank(text[at])) {
            ++at;
            continue;
        }
        const bool quoted = text[at] == '"';
        const std::size_t begin = quoted ? at + 1 : at;
        at = begin;
        while (at < text.size() &&
               (quoted ? text[at] != '"' : !isBlank(text[at]) && text[at] != ';')) {
            ++at;
        }
        words.emplace_back(text.substr(begin, at - begin));
        at += quoted && at < text.size() ? 1 : 0;
    }
    return words;
}

bool isUtf8(const std::string& text) {
    return host_text::toUtf8(host_text::fromUtf8(text)) == text;
}

std::string shown(const std::string& word) {
    return host_text::toUtf8(host_text::fromUtf8(word));
}

std::optional<double> numberOf(std::string_view word) {
    if (!word.empty() && word.front() == '+') {
        word.remove_prefix(1);
    }
    double value = 0.0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    const bool whole = error == std::errc() && end == word.data() + word.size();
    return whole && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

} // namespace

std::string capitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return text;
}

ModelFile::ModelFile(std::string path) : path_(std::move(path)) {
    const std::optional<std::string> bytes = siblings::readWholeFile(path_);
    if (!bytes) {
        std::error_code none;
        fail(std::filesystem::exists(path_, none) ? "cannot be read" : "there is no such file");
    }
    std::string_view rest = *bytes;
    if (rest.substr(0, 3) == "\xEF\xBB\xBF") {
        rest.remove_prefix(3);
    }
    std::vector<ModelRow>* section = nullptr;
    for (int line = 1; !rest.empty(); ++line) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        readLine(rest.substr(0, end), line, section);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void ModelFile::readLine(std::string_view text, int line, std::vector<ModelRow>*& section) {
    if (text.find('\0') != std::string_view::npos) {
        fail(line, "the line holds a null character, so this is no model");
    }
    std::vector<std::string> words = wordsOf(text);
    if (words.empty()) {
        return;
    }
    if (words.front().front() == '[') {
        section = &sections_[capitals(words.front().substr(1, kSectionLetters))];
    } else if (section == nullptr) {
        fail(line, "the line stands before the first section, so this is no model");
    } else {
        section->push_back({line, std::move(words)});
    }
}

const std::vector<ModelRow>& ModelFile::rows(const std::string& section) const {
    static const std::vector<ModelRow> none;
    const auto found = sections_.find(section);
    return found == sections_.end() ? none : found->second;
}

std::string ModelFile::option(const std::string& name, const std::string& missing) const {
    std::string value = missing;
    for (const ModelRow& row : rows("OPTI")) {
        if (row.words.size() > 1 && capitals(row.words[0]) == name) {
            value = capitals(row.words[1]);
        }
    }
    return value;
}

void ModelFile::need(const ModelRow& row, std::size_t words) const {
    if (row.words.size() < words) {
        fail(row.line,
             textOf({0, "the line has {} words, at least {} are needed"}, row.words.size(), words));
    }
}

double ModelFile::number(const ModelRow& row, std::size_t place) const {
    need(row, place + 1);
    const std::optional<double> value = numberOf(row.words[place]);
    if (!value) {
        fail(row.line, textOf({0, "'{}' is no number"}, shown(row.words[place])));
    }
    if (std::abs(*value) > kLargest) {
        fail(row.line, textOf({0, "'{}' is too large"}, shown(row.words[place])));
    }
    return *value;
}

double ModelFile::number(const ModelRow& row, std::size_t place, double missing) const {
    return place < row.words.size() ? number(row, place) : missing;
}

const std::string& ModelFile::name(const ModelRow& row, std::size_t place) const {
    need(row, place + 1);
    const std::string& word = row.words[place];
    if (!isUtf8(word)) {
        fail(row.line, textOf({0, "the name '{}' is not UTF-8 text"}, shown(word)));
    }
    return word;
}

void ModelFile::fail(const std::string& cause) const {
    throw Failure(messages::kModel, path_, cause);
}

void ModelFile::fail(int line, const std::string& cause) const {
    throw Failure(messages::kModelLine, path_, line, cause);
}

} // namespace pipenet
