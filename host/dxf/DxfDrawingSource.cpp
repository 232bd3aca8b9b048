#include "dxf/DxfDrawingSource.h"

#include "database/NameKey.h"
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

void DxfDrawingSource::setApplicationNames(const ApplicationNames& names) {
    numberOfBytes_.clear();
    numberOfName_.clear();
    for (const auto& [bytes, name] : names) {
        const auto next = static_cast<std::uint32_t>(numberOfName_.size());
        const std::uint32_t number =
            numberOfName_.try_emplace(host_db::nameKey(name.c_str()), next).first->second;
        numberOfName_.try_emplace(name, number);
        numberOfBytes_.emplace(bytes, number);
    }
}

std::uint32_t DxfDrawingSource::applicationNumber(const wchar_t* application) const {
    auto known = numberOfName_.find(std::wstring_view(application));
    if (known == numberOfName_.end()) {
        known = numberOfName_.find(host_db::nameKey(application));
    }
    return known == numberOfName_.end() ? kNoApplication : known->second;
}

bool DxfDrawingSource::isApplication(std::string_view bytes, const wchar_t* application,
                                     std::uint32_t number) const {
    const auto known = numberOfBytes_.find(bytes);
    return known != numberOfBytes_.end()
               ? known->second == number
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
    const std::uint32_t number = applicationNumber(application);
    TagCursor cursor = cursorOver(range);
    DxfTag tag;
    bool inside = false;
    while (nextXdata(cursor, tag, &TagCursor::nextUnparsed)) {
        if (tag.code == applicationCode) {
            if (inside) {
                break;
            }
            inside = isApplication(tag.text, application, number);
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
