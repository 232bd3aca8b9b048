#pragma once

#include "database/DictionaryHolder.h"
#include "database/DrawingSource.h"
#include "dxf/DxfSource.h"
#include "dxf/FileOutline.h"
#include "dxf/ItemCollector.h"
#include "dxf/RecentTexts.h"
#include "dxf/TextDecoder.h"
#include "dxf/XdataNotes.h"

#include <cstdint>
#include <memory>
#include <string_view>
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
                          std::uint32_t number, CString& text) const override;
    bool holdsDictionaries() const override { return outline_.hasMarkers(); }

    const DxfSource& file() const { return *file_; }
    const TextDecoder& decoder() const { return *decoder_; }
    const FileOutline& outline() const { return outline_; }
    void setOutline(FileOutline outline) { outline_ = std::move(outline); }

    /// What is known of the objects' extended data, filled while the drawing is read.
    XdataNotes& xdataNotes() { return xdataNotes_; }

private:
    /// A text to which the notes give a number, decoded when it is first asked for.
    struct Repeated {
        CString text;
        bool isRead = false;
    };

    TagCursor xdataOf(const SourceRange& range) const;
    std::string_view farText(const SourceRange& range, const wchar_t* application) const;
    const CString& repeatedText(std::size_t number) const {
        const bool isRead = number < repeated_.size() && repeated_[number].isRead;
        return isRead ? repeated_[number].text : readRepeatedText(number);
    }
    const CString& readRepeatedText(std::size_t number) const;

    std::shared_ptr<const DxfSource> file_;
    std::shared_ptr<const TextDecoder> decoder_;
    FileOutline outline_;
    XdataNotes xdataNotes_;
    mutable RecentTexts texts_;
    mutable std::vector<Repeated> repeated_; ///< by the number that the notes give
};

} // namespace host_dxf
