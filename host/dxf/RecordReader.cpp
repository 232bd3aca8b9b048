#include "dxf/RecordReader.h"

namespace host_dxf {

namespace {

constexpr int subclassMarker = 100;
constexpr int embeddedObjectMarker = 101;
constexpr int bracketCode = 102;
constexpr int applicationCode = 1001;
constexpr int firstXdataCode = 1000;
constexpr int ownedHandleCode = 360;

} // namespace

/// Sorts the groups of one record into the parts that DxfRecord names.
class RecordReader::Sorter {
public:
    explicit Sorter(DxfRecord& record) : record_(record) {}

    void add(const DxfTag& tag) {
        if (tag.code == applicationCode) {
            part_ = Part::Xdata;
            record_.applications.push_back(tag);
            noteFirstApplication(tag);
        } else if (part_ == Part::Xdata && tag.code >= firstXdataCode) {
            return;
        } else if (part_ == Part::XrecordData) {
            record_.tags.push_back(tag);
        } else {
            addField(tag);
        }
    }

private:
    enum class Part { Fields, Bracket, Embedded, Xdata, XrecordData };

    void noteFirstApplication(const DxfTag& tag) {
        if (record_.applications.size() == 1) {
            record_.range.xdataOffset = static_cast<std::uint32_t>(tag.begin - record_.range.begin);
        }
    }

    void addField(const DxfTag& tag) {
        if (tag.code == bracketCode) {
            enterOrLeaveBracket(tag);
            return;
        }
        if (tag.code == embeddedObjectMarker) {
            part_ = Part::Embedded;
        } else if (tag.code == subclassMarker) {
            // An unclosed bracket ends here at the latest: markers never stand inside one.
            const bool xrecord = record_.is("XRECORD") && tag.text == "AcDbXrecord";
            part_ = xrecord ? Part::XrecordData : Part::Fields;
        }
        if (part_ == Part::Bracket) {
            const bool dictionary = inExtensionDictionary_ && tag.code == ownedHandleCode;
            record_.extensionDictionary = dictionary ? handleOf(tag) : record_.extensionDictionary;
        } else if (part_ != Part::Embedded) {
            record_.tags.push_back(tag);
        }
    }

    void enterOrLeaveBracket(const DxfTag& tag) {
        if (part_ == Part::Embedded) {
            return;
        }
        part_ = tag.text.starts_with('{') ? Part::Bracket : Part::Fields;
        inExtensionDictionary_ = tag.text == "{ACAD_XDICTIONARY";
    }

    DxfRecord& record_;
    Part part_ = Part::Fields;
    bool inExtensionDictionary_ = false;
};

RecordReader::RecordReader(const DxfSource& source) : cursor_(source) {
    advance();
}

RecordReader::RecordReader(const DxfSource& source, const FilePosition& start)
    : cursor_(source, start.offset, source.bytes().size(), start.line) {
    advance();
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
    record.type = next_.text;
    record.position = next_.position();
    record.range = {next_.begin, next_.end, next_.line, 0};
    record.tags.clear();
    record.applications.clear();
    record.extensionDictionary = 0;
    Sorter sorter(record);
    for (advance(); next_.code != 0; advance()) {
        if (next_.code == endOfFile) {
            failExpecting("group 0");
        }
        sorter.add(next_);
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
