#include "dxf/RecordReader.h"

#include "dxf/GroupCode.h"
#include "dxf/RecordSorter.h"

namespace host_dxf {

namespace {

constexpr int ownedHandleCode = 360;

/// Puts the groups of one record into the parts that DxfRecord names.
class RecordFiller {
public:
    explicit RecordFiller(DxfRecord& record) : record_(record), sorter_(record.type) {}

    void add(const DxfTag& tag) {
        switch (sorter_.next(tag)) {
        case RecordPart::Fields:
        case RecordPart::XrecordData:
            record_.tags.push_back(tag);
            break;
        case RecordPart::Bracket:
            if (sorter_.inExtensionDictionary() && tag.code == ownedHandleCode) {
                record_.extensionDictionary = handleOf(tag);
            }
            break;
        case RecordPart::Xdata:
            addXdata(tag);
            return;
        case RecordPart::Embedded:
            break;
        }
        xdataEnded_ = !record_.applications.empty();
    }

private:
    void addXdata(const DxfTag& tag) {
        xdataEnded_ = xdataEnded_ || tag.code > lastXdataCode;
        if (tag.code == applicationCode) {
            record_.applications.push_back(tag);
        }
        if (xdataEnded_) {
            return;
        }
        if (tag.code == applicationCode) {
            record_.firstTexts.emplace_back();
        } else if (tag.code == textCode && record_.firstTexts.back().data() == nullptr) {
            record_.firstTexts.back() = tag.text;
        }
    }

    DxfRecord& record_;
    RecordSorter sorter_;
    bool xdataEnded_ = false;
};

} // namespace

RecordReader::RecordReader(const DxfSource& source) : cursor_(source) {
    advance();
}

RecordReader::RecordReader(const DxfSource& source, const FilePosition& start)
    : cursor_(source, start.offset, source.bytes().size(), start.line) {
    advance();
}

void RecordReader::moveTo(const DxfSource& source, const FilePosition& start) {
    *this = RecordReader(source, start);
}

void RecordReader::advance() {
    constexpr int comment = 999;
    const FilePosition position = cursor_.position();
    bool found = cursor_.next(next_);
    while (found && next_.code == comment) {
        found = cursor_.next(next_);
    }
    if (!found) {
        next_ = DxfTag();
        next_.code = endOfFile;
        next_.line = static_cast<std::uint32_t>(position.line);
        next_.begin = cursor_.position().offset;
        next_.end = next_.begin;
    }
}

void RecordReader::read(DxfRecord& record) {
    if (next_.code != 0) {
        failExpecting("group 0");
    }
    cursor_.source().reads(next_.begin);
    record.type = next_.text;
    record.position = next_.position();
    record.range = {next_.begin, next_.end, next_.line, 0};
    record.tags.clear();
    record.applications.clear();
    record.firstTexts.clear();
    record.extensionDictionary = 0;
    RecordFiller filler(record);
    for (advance(); next_.code != 0; advance()) {
        if (next_.code == endOfFile) {
            failExpecting("group 0");
        }
        filler.add(next_);
    }
    record.range.end = next_.begin;
}

void RecordReader::failExpecting(const std::string& expected) const {
    if (next_.code == endOfFile) {
        throw DxfFailure(next_.position(), "the file ends, expected " + expected);
    }
    const std::string found =
        next_.code == 0 ? quotedForMessage(next_.text) : "group " + std::to_string(next_.code);
    throw DxfFailure(next_.position(), "expected " + expected + ", found " + found);
}

} // namespace host_dxf
