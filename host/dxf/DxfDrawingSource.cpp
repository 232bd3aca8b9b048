#include "dxf/DxfDrawingSource.h"

#include "dxf/TagCursor.h"
#include "platform/WideCharacters.h"

#include <utility>

namespace host_dxf {

namespace {

constexpr int firstXdataCode = 1000;
constexpr int lastXdataCode = 1071;
constexpr int applicationCode = 1001;

/// The next group of extended data; false where the data ends. `step` is how the cursor goes on.
bool nextXdata(TagCursor& cursor, DxfTag& tag, bool (TagCursor::*step)(DxfTag&)) {
    constexpr int comment = 999;
    bool found = (cursor.*step)(tag);
    while (found && tag.code == comment) {
        found = (cursor.*step)(tag);
    }
    return found && tag.code >= firstXdataCode && tag.code <= lastXdataCode;
}

} // namespace

DxfDrawingSource::DxfDrawingSource(std::shared_ptr<const DxfSource> file,
                                   std::shared_ptr<const TextDecoder> decoder)
    : file_(std::move(file)), decoder_(std::move(decoder)) {}

TagCursor DxfDrawingSource::cursorOver(const SourceRange& range) const {
    return {*file_, range.begin + range.xdataOffset, range.end, range.firstLine};
}

CString DxfDrawingSource::decoded(std::string_view bytes) const {
    return CString(std::wstring_view(decoder_->decode(bytes)));
}

bool DxfDrawingSource::isApplication(std::string_view bytes, const wchar_t* application) const {
    const auto known = applicationNames_.find(bytes);
    return known != applicationNames_.end()
               ? host_text::compareNoCase(known->second.c_str(), application) == 0
               : host_text::compareNoCase(decoder_->decode(bytes).c_str(), application) == 0;
}

resbuf* DxfDrawingSource::readXdata(const SourceRange& range) const {
    if (range.xdataOffset == 0) {
        return nullptr;
    }
    const HandleResolver noReferences; // extended data has no group of an object reference
    ItemCollector items(*decoder_, noReferences);
    TagCursor cursor = cursorOver(range);
    DxfTag tag;
    while (nextXdata(cursor, tag, &TagCursor::next)) {
        items.add(tag);
    }
    return host_db::chainOf(items.take());
}

bool DxfDrawingSource::firstXdataString(const SourceRange& range, const wchar_t* application,
                                        CString& text) const {
    if (range.xdataOffset == 0) {
        return false;
    }
    TagCursor cursor = cursorOver(range);
    DxfTag tag;
    bool inside = false;
    while (nextXdata(cursor, tag, &TagCursor::nextUnparsed)) {
        if (tag.code == applicationCode) {
            if (inside) {
                break;
            }
            inside = isApplication(tag.text, application);
        } else if (inside && tag.code == firstXdataCode) {
            text = decoded(tag.text);
            return true;
        }
    }
    if (inside) {
        text.Empty();
    }
    return inside;
}

} // namespace host_dxf
