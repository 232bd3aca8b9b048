#include "dxf/DxfDrawingSource.h"

#include "dxf/GroupCode.h"
#include "dxf/TagCursor.h"
#include "platform/WideCharacters.h"

#include <utility>

namespace host_dxf {

namespace {

/// The next group of extended data; false where the data ends.
bool nextXdata(TagCursor& cursor, DxfTag& tag) {
    constexpr int comment = 999;
    bool found = cursor.next(tag);
    while (found && tag.code == comment) {
        found = cursor.next(tag);
    }
    return found && tag.code >= firstXdataCode && tag.code <= lastXdataCode;
}

} // namespace

DxfDrawingSource::DxfDrawingSource(std::shared_ptr<const DxfSource> file,
                                   std::shared_ptr<const TextDecoder> decoder)
    : file_(std::move(file)), decoder_(std::move(decoder)), texts_(*decoder_) {}

TagCursor DxfDrawingSource::xdataOf(const SourceRange& range) const {
    return {*file_, range.begin + xdataNotes_.beginOf(range.xdata), range.end, range.firstLine};
}

resbuf* DxfDrawingSource::readXdata(const SourceRange& range) const {
    if (range.xdata == 0) {
        return nullptr;
    }
    const HandleResolver noReferences; // extended data has no group of an object reference
    ItemCollector items(*decoder_, noReferences);
    TagCursor cursor = xdataOf(range);
    DxfTag tag;
    while (nextXdata(cursor, tag)) {
        items.add(tag);
    }
    return host_db::chainOf(items.take());
}

/// The first text of an application's first section, both of which are there.
std::string_view DxfDrawingSource::farText(const SourceRange& range,
                                           const wchar_t* application) const {
    TagCursor cursor = xdataOf(range);
    DxfTag tag;
    bool inSection = false;
    while (nextXdata(cursor, tag) && !(inSection && tag.code == textCode)) {
        if (tag.code == applicationCode) {
            inSection =
                host_text::compareNoCase(decoder_->decode(tag.text).c_str(), application) == 0;
        }
    }
    return tag.text;
}

const CString& DxfDrawingSource::readRepeatedText(std::size_t number) const {
    if (number >= repeated_.size()) {
        repeated_.resize(number + 1);
    }
    Repeated& repeated = repeated_[number];
    texts_.read(xdataNotes_.repeatedText(number), repeated.text);
    repeated.isRead = true;
    return repeated.text;
}

bool DxfDrawingSource::firstXdataString(const SourceRange& range, const wchar_t* application,
                                        std::uint32_t number, CString& text) const {
    using Outcome = XdataNotes::Outcome;
    if (range.xdata == 0) {
        return false;
    }
    const XdataNotes::Finding finding = xdataNotes_.find(range.xdata, number);
    switch (finding.outcome) {
    case Outcome::NoSection:
        return false;
    case Outcome::NoText:
        text.Empty();
        break;
    case Outcome::Text: {
        const std::size_t begin = range.begin + xdataNotes_.beginOf(range.xdata) + finding.text;
        texts_.read(TagCursor(*file_, begin, range.end, range.firstLine).textHere(), text);
        break;
    }
    case Outcome::RepeatedText:
        text = repeatedText(finding.text);
        break;
    case Outcome::Unknown:
        texts_.read(farText(range, application), text);
        break;
    }
    return true;
}

} // namespace host_dxf
