#include "dxf/XdataSections.h"

namespace host_dxf {

namespace {

constexpr int firstXdataCode = 1000;
constexpr int lastXdataCode = 1071;
constexpr int applicationCode = 1001;
constexpr auto noObject = static_cast<std::size_t>(-1);

} // namespace

XdataSections::XdataSections(const DxfSource& file)
    : file_(file), cursor_(file, 0, 0, 0), object_(noObject) {}

void XdataSections::turnTo(const SourceRange& range) {
    if (range.begin == object_) {
        return;
    }
    object_ = noObject; // until the new one is taken up
    cursor_ = TagCursor(file_, range.begin + range.xdataOffset, range.end, range.firstLine);
    sections_.clear();
    hasTag_ = nextTag(tag_);
    object_ = range.begin;
}

const XdataSection* XdataSections::at(std::size_t index) {
    while (index >= sections_.size() && hasTag_) {
        readSection();
    }
    return index < sections_.size() ? &sections_[index] : nullptr;
}

/// The next group of extended data; false where the data ends.
bool XdataSections::nextTag(DxfTag& tag) {
    if (cursor_.nextXdataText(tag)) {
        return true;
    }
    constexpr int comment = 999;
    bool found = cursor_.nextUnparsed(tag);
    while (found && tag.code == comment) {
        found = cursor_.nextUnparsed(tag);
    }
    return found && tag.code >= firstXdataCode && tag.code <= lastXdataCode;
}

void XdataSections::readSection() {
    XdataSection& section = sections_.emplace_back(); // before anything is taken from the cursor
    section.application = tag_.text;
    hasTag_ = nextTag(tag_);
    while (hasTag_ && tag_.code != applicationCode) {
        if (tag_.code == firstXdataCode && !section.hasText) {
            section.text = tag_.text;
            section.hasText = true;
        }
        hasTag_ = nextTag(tag_);
    }
}

} // namespace host_dxf
