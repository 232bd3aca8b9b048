#include "dxf/RawRecord.h"

#include "dxf/GroupCode.h"
#include "dxf/TagCursor.h"

namespace host_dxf {

RawRecord::RawRecord(const DxfSource& file, const SourceRange& range) {
    constexpr int comment = 999;
    TagCursor cursor(file, range.begin, range.end, range.firstLine);
    DxfTag tag;
    cursor.next(tag);
    type = tag.text;
    begin = tag.begin;
    bodyBegin = tag.end;
    end = tag.end;
    RecordSorter sorter(type);
    while (cursor.next(tag) && tag.code != 0) {
        if (tag.code != comment) {
            const RecordPart part = sorter.next(tag);
            const bool dictionary = part == RecordPart::Bracket && sorter.inExtensionDictionary();
            groups.push_back({tag, part, dictionary});
            end = tag.end;
        }
    }
}

std::vector<SourceRange> recordsIn(const DxfSource& file, const SourceRange& range) {
    std::vector<SourceRange> records;
    TagCursor cursor(file, range.begin, range.end, range.firstLine);
    for (DxfTag tag; cursor.nextUnparsed(tag);) {
        if (tag.code == 0) {
            records.push_back({tag.begin, tag.end, tag.line, 0});
        }
        records.back().end = tag.end;
    }
    return records;
}

const DxfTag* RawRecord::field(int code) const {
    for (const Group& group : groups) {
        if (group.part == RecordPart::Fields && group.tag.code == code) {
            return &group.tag;
        }
    }
    return nullptr;
}

const DxfTag* RawRecord::marker(std::string_view name, std::size_t from) const {
    for (const Group& group : groups) {
        if (group.part == RecordPart::Fields && group.tag.code == subclassMarker &&
            group.tag.text == name && group.tag.begin >= from) {
            return &group.tag;
        }
    }
    return nullptr;
}

std::size_t RawRecord::xdataBegin() const {
    for (const Group& group : groups) {
        if (group.part == RecordPart::Xdata) {
            return group.tag.begin;
        }
    }
    return end;
}

} // namespace host_dxf
