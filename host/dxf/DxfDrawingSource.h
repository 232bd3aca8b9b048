#pragma once

#include "database/DrawingSource.h"
#include "dxf/DxfSource.h"
#include "dxf/FileOutline.h"
#include "dxf/ItemCollector.h"
#include "dxf/TextDecoder.h"

#include <memory>
#include <string_view>

namespace host_dxf {

class TagCursor;

/// The drawing file behind a database: its bytes, its encoding and its layout, for reading texts
/// when they are asked for and for saving what did not change byte by byte.
class DxfDrawingSource final : public host_db::DrawingSource {
public:
    DxfDrawingSource(std::shared_ptr<const DxfSource> file,
                     std::shared_ptr<const TextDecoder> decoder);

    resbuf* readXdata(const SourceRange& range) const override;
    bool firstXdataString(const SourceRange& range, const wchar_t* application,
                          CString& text) const override;

    const DxfSource& file() const { return *file_; }
    const TextDecoder& decoder() const { return *decoder_; }
    const FileOutline& outline() const { return outline_; }
    void setOutline(FileOutline outline) { outline_ = std::move(outline); }

private:
    TagCursor cursorOver(const SourceRange& range) const;
    CString decoded(std::string_view bytes) const;
    bool isApplication(std::string_view bytes, const wchar_t* application) const;

    std::shared_ptr<const DxfSource> file_;
    std::shared_ptr<const TextDecoder> decoder_;
    FileOutline outline_;
};

} // namespace host_dxf
