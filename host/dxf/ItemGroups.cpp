#include "dxf/ItemGroups.h"

#include "dxf/GroupCode.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <vector>

namespace host_dxf {

namespace {

using host_db::ResultItem;
using host_db::ResultItems;

bool sameItem(const ResultItem& a, const ResultItem& b) {
    if (a.type != b.type || a.value.index() != b.value.index()) {
        return false;
    }
    if (const auto* const point = std::get_if<AcGePoint3d>(&a.value)) {
        const auto& other = std::get<AcGePoint3d>(b.value); // to the last bit, not within a reach
        return point->x == other.x && point->y == other.y && point->z == other.z;
    }
    if (const auto* const text = std::get_if<CString>(&a.value)) {
        return std::wstring_view(text->GetString()) == std::get<CString>(b.value).GetString();
    }
    if (const auto* const real = std::get_if<double>(&a.value)) {
        return *real == std::get<double>(b.value);
    }
    if (const auto* const number = std::get_if<std::int64_t>(&a.value)) {
        return *number == std::get<std::int64_t>(b.value);
    }
    const auto* const bytes = std::get_if<std::string>(&a.value);
    return bytes == nullptr || *bytes == std::get<std::string>(b.value);
}

/// The items that stand in some groups, and the index of the first group of each, with one more
/// behind the last. Groups that no item can hold go with the item before them.
struct StandingItems {
    ResultItems items;
    std::vector<std::size_t> starts;
};

StandingItems standingItems(const RawRecord& record, const ItemTranslator& translator,
                            std::size_t first, std::size_t last) {
    StandingItems standing;
    ItemCollector collector(translator.decoder, translator.toId);
    for (std::size_t i = first; i < last; ++i) {
        collector.add(record.groups[i].tag);
        if (collector.count() > standing.starts.size()) {
            standing.starts.push_back(i);
        }
    }
    standing.starts.push_back(last);
    standing.items = collector.take();
    return standing;
}

bool isSection(const ResultItem& item) {
    return item.type == applicationCode;
}

std::wstring_view applicationOf(const ResultItem& item) {
    return std::get<CString>(item.value).GetString();
}

bool isSameApplication(std::wstring_view a, std::wstring_view b) {
    return host_text::compareNoCase(std::wstring(a).c_str(), std::wstring(b).c_str()) == 0;
}

/// Takes the first section of an application out of `items`, without the item of its name; false
/// when there is none.
bool takeSection(ResultItems& items, std::wstring_view application, ResultItems& section) {
    const auto begin = std::find_if(items.begin(), items.end(), [&](const ResultItem& item) {
        return isSection(item) && isSameApplication(applicationOf(item), application);
    });
    if (begin == items.end()) {
        return false;
    }
    const auto end = std::find_if(begin + 1, items.end(), isSection);
    section.assign(begin + 1, end);
    items.erase(begin, end);
    return true;
}

bool isSectionStart(const RawRecord::Group& group) {
    return group.part == RecordPart::Xdata && group.tag.code == applicationCode;
}

} // namespace

void ItemTranslator::write(const ResultItem& item, TagWriter& writer) const {
    const int code = item.type;
    if (const auto* const text = std::get_if<CString>(&item.value)) {
        writer.text(code, text->GetString());
    } else if (const auto* const real = std::get_if<double>(&item.value)) {
        writer.real(code, *real);
    } else if (const auto* const point = std::get_if<AcGePoint3d>(&item.value)) {
        writer.real(code, point->x);
        writer.real(code + 10, point->y);
        writer.real(code + 20, point->z);
    } else if (const auto* const number = std::get_if<std::int64_t>(&item.value)) {
        if (host_db::valueKind(code) == host_db::ValueKind::Name) {
            writer.handle(code, toHandle(*number));
        } else {
            writer.integer(code, *number);
        }
    } else if (const auto* const bytes = std::get_if<std::string>(&item.value)) {
        writer.chunk(code, *bytes);
    }
}

void changeItems(RecordEditor& editor, const ItemTranslator& translator, std::size_t first,
                 std::size_t last, std::size_t place, const ResultItems& wanted) {
    const StandingItems standing = standingItems(editor.record(), translator, first, last);
    const std::size_t most = std::min(standing.items.size(), wanted.size());
    std::size_t start = 0;
    while (start < most && sameItem(standing.items[start], wanted[start])) {
        ++start;
    }
    std::size_t end = 0;
    while (end < most - start &&
           sameItem(*(standing.items.rbegin() + static_cast<std::ptrdiff_t>(end)),
                    *(wanted.rbegin() + static_cast<std::ptrdiff_t>(end)))) {
        ++end;
    }
    for (std::size_t i = start; i < wanted.size() - end; ++i) {
        translator.write(wanted[i], editor.writer());
    }
    const std::size_t from = standing.starts[start];
    const std::size_t to = standing.starts[standing.items.size() - end];
    const std::size_t gap = from > first ? editor.record().groups[from - 1].tag.end : place;
    editor.replaceGroups(from, to, gap, editor.writer().take());
}

void changeXdata(RecordEditor& editor, const ItemTranslator& translator,
                 const ResultItems& wanted) {
    const auto& groups = editor.record().groups;
    ResultItems left = wanted;
    std::size_t end = groups.size();
    for (std::size_t i = 0; i < groups.size(); i = isSectionStart(groups[i]) ? end : i + 1) {
        if (!isSectionStart(groups[i])) {
            continue;
        }
        end = i + 1;
        while (end < groups.size() && groups[end].part == RecordPart::Xdata &&
               !isSectionStart(groups[end])) {
            ++end;
        }
        ResultItems section;
        const std::wstring name = translator.decoder.decode(groups[i].tag.text);
        if (takeSection(left, name, section)) {
            changeItems(editor, translator, i + 1, end, groups[i].tag.end, section);
        } else {
            editor.replaceGroups(i, end, 0, {});
        }
    }
    for (const ResultItem& item : left) {
        translator.write(item, editor.writer());
    }
    editor.insert(editor.record().end, editor.writer().take());
}

} // namespace host_dxf
