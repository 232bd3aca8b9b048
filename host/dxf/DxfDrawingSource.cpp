#include "dxf/DxfDrawingSource.h"

#include "database/NameKey.h"
#include "dxf/TagCursor.h"
#include "platform/WideCharacters.h"

#include <utility>

namespace host_dxf {

namespace {

constexpr int firstXdataCode = 1000;
constexpr int lastXdataCode = 1071;

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
    : file_(std::move(file)), decoder_(std::move(decoder)), sections_(*file_), texts_(*decoder_) {}

TagCursor DxfDrawingSource::cursorOver(const SourceRange& range) const {
    return {*file_, range.begin + range.xdataOffset, range.end, range.firstLine};
}

void DxfDrawingSource::setApplicationNames(const ApplicationNames& names) {
    numberOfBytes_.clear();
    numberOfName_.clear();
    onlySpelling_.clear();
    for (const auto& [bytes, name] : names) {
        const auto next = static_cast<std::uint32_t>(onlySpelling_.size());
        const auto [entry, isNew] = numberOfName_.try_emplace(host_db::nameKey(name.c_str()), next);
        const std::uint32_t number = entry->second;
        if (isNew) {
            onlySpelling_.push_back(bytes);
        } else {
            onlySpelling_[number] = {};
        }
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
    while (nextXdata(cursor, tag)) {
        items.add(tag);
    }
    return host_db::chainOf(items.take());
}

/// The first section of an application in the data that `sections_` has turned to.
const XdataSection* DxfDrawingSource::findSection(const wchar_t* application) const {
    const std::uint32_t number = applicationNumber(application);
    const std::string_view spelling =
        number < onlySpelling_.size() ? onlySpelling_[number] : std::string_view();
    for (std::size_t i = 0; const XdataSection* section = sections_.at(i); ++i) {
        const bool isFound = spelling.empty()
                                 ? isApplication(section->application, application, number)
                                 : section->application == spelling;
        if (isFound) {
            return section;
        }
    }
    return nullptr;
}

bool DxfDrawingSource::firstXdataString(const SourceRange& range, const wchar_t* application,
                                        CString& text) const {
    if (range.xdataOffset == 0) {
        return false;
    }
    sections_.turnTo(range);
    const XdataSection* const section = findSection(application);
    if (section == nullptr) {
        return false;
    }
    text = section->hasText ? texts_.of(section->text) : CString();
    return true;
}

} // namespace host_dxf
