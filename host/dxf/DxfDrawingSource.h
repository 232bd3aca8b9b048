#pragma once

#include "database/DictionaryHolder.h"
#include "database/DrawingSource.h"
#include "dxf/DxfSource.h"
#include "dxf/FileOutline.h"
#include "dxf/ItemCollector.h"
#include "dxf/RecentTexts.h"
#include "dxf/TextDecoder.h"
#include "dxf/XdataSections.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace host_dxf {

class TagCursor;

/// The drawing file behind a database: its bytes, its encoding and its layout, for reading texts
/// when they are asked for and for saving what did not change byte by byte.
class DxfDrawingSource final : public host_db::DrawingSource, public host_db::DictionaryHolder {
public:
    DxfDrawingSource(std::shared_ptr<const DxfSource> file,
                     std::shared_ptr<const TextDecoder> decoder);

    resbuf* readXdata(const SourceRange& range) const override;
    bool firstXdataString(const SourceRange& range, const wchar_t* application,
                          CString& text) const override;
    bool holdsDictionaries() const override { return outline_.hasMarkers(); }

    const DxfSource& file() const { return *file_; }
    const TextDecoder& decoder() const { return *decoder_; }
    const FileOutline& outline() const { return outline_; }
    void setOutline(FileOutline outline) { outline_ = std::move(outline); }

    /// The decoded names of the file's applications by their bytes in the file, so that looking for
    /// an application decodes no name: those of all objects with extended data. Without any, names
    /// are decoded each time.
    using ApplicationNames = std::unordered_map<std::string_view, std::wstring>;
    void setApplicationNames(const ApplicationNames& names);

private:
    static constexpr std::uint32_t kNoApplication = 0xFFFFFFFFU;
    /// For hashing a text of any kind, so that a look-up copies none.
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::wstring_view text) const noexcept {
            return std::hash<std::wstring_view>{}(text);
        }
    };

    TagCursor cursorOver(const SourceRange& range) const;
    std::uint32_t applicationNumber(const wchar_t* application) const;
    bool isApplication(std::string_view bytes, const wchar_t* application,
                       std::uint32_t number) const;
    const XdataSection* findSection(const wchar_t* application) const;

    std::shared_ptr<const DxfSource> file_;
    std::shared_ptr<const TextDecoder> decoder_;
    FileOutline outline_;
    /// The file's applications are numbered, one number for all cases of a name.
    std::unordered_map<std::string_view, std::uint32_t> numberOfBytes_;
    /// By the names as the file spells them, and in the form that all cases share.
    std::unordered_map<std::wstring, std::uint32_t, TextHash, std::equal_to<>> numberOfName_;
    /// By number, the bytes of an application that the file spells in one way; else empty.
    std::vector<std::string_view> onlySpelling_;
    mutable XdataSections sections_; ///< of the object that was asked last
    mutable RecentTexts texts_;
};

} // namespace host_dxf
