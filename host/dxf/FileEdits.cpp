#include "dxf/FileEdits.h"

#include <algorithm>

namespace host_dxf {

std::string FileEdits::applied(std::string_view file, std::size_t begin, std::size_t end) const {
    std::vector<const Edit*> ordered;
    std::size_t added = 0;
    for (const Edit& edit : edits_) {
        ordered.push_back(&edit);
        added += edit.text.size();
    }
    std::stable_sort(ordered.begin(), ordered.end(), [](const Edit* a, const Edit* b) {
        if (a->begin != b->begin) {
            return a->begin < b->begin;
        }
        const bool insertsA = a->begin == a->end;
        const bool insertsB = b->begin == b->end;
        return insertsA != insertsB ? insertsA : a->end > b->end;
    });
    std::string result;
    result.reserve(end - begin + added);
    std::size_t place = begin;
    for (const Edit* edit : ordered) {
        if (edit->begin < place) {
            continue;
        }
        result.append(file, place, edit->begin - place);
        result += edit->text;
        place = edit->end;
    }
    return result.append(file, place, end - place);
}

} // namespace host_dxf
