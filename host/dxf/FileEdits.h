#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host_dxf {

/// Changes to the bytes of a file, gathered in any order and carried out together. What no change
/// touches is copied as it stands.
class FileEdits {
public:
    void replace(std::size_t begin, std::size_t end, std::string text) {
        edits_.push_back({begin, end, std::move(text)});
    }
    void erase(std::size_t begin, std::size_t end) { replace(begin, end, {}); }
    /// What is put in at one place stands there in the order of the calls, before a change that
    /// starts at the place. An empty text is no change.
    void insert(std::size_t place, std::string text) {
        if (!text.empty()) {
            replace(place, place, std::move(text));
        }
    }
    bool isEmpty() const { return edits_.empty(); }

    /// The file after the changes. A change inside a range that another one replaces is dropped.
    std::string applied(std::string_view file) const { return applied(file, 0, file.size()); }
    /// The bytes of the file from `begin` to before `end` after the changes, which lie within.
    std::string applied(std::string_view file, std::size_t begin, std::size_t end) const;

private:
    struct Edit {
        std::size_t begin;
        std::size_t end;
        std::string text;
    };

    std::vector<Edit> edits_;
};

} // namespace host_dxf
