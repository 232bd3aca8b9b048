#include "LoadedDrawing.h"

#include "database/ResultBuffer.h"
#include "dxf/LoadDxf.h"

#include <gtest/gtest.h>

#include <sstream>

namespace dxf_test {

namespace {

std::wstring lineOf(const resbuf& item) {
    std::wostringstream line;
    line << item.restype << L'=';
    switch (host_db::valueKind(item.restype)) {
    case host_db::ValueKind::Text:
        line << item.resval.rstring;
        break;
    case host_db::ValueKind::Real:
        line << item.resval.rreal;
        break;
    case host_db::ValueKind::Point:
        line << item.resval.rpoint[0] << L',' << item.resval.rpoint[1] << L','
             << item.resval.rpoint[2];
        break;
    case host_db::ValueKind::Short:
        line << item.resval.rint;
        break;
    case host_db::ValueKind::Long:
        line << item.resval.rlong;
        break;
    case host_db::ValueKind::Binary:
        for (short i = 0; i < item.resval.rbinary.clen; ++i) {
            line << (i == 0 ? L"" : L" ")
                 << static_cast<int>(static_cast<unsigned char>(item.resval.rbinary.buf[i]));
        }
        break;
    default:
        line << L'?';
    }
    return line.str();
}

} // namespace

LoadedDrawing::LoadedDrawing(std::unique_ptr<AcDbDatabase> database, const std::string& error)
    : database_(std::move(database)) {
    if (database_ == nullptr) {
        ADD_FAILURE() << error;
        database_ = std::make_unique<AcDbDatabase>();
    }
}

LoadedDrawing LoadedDrawing::fromBytes(const std::string& bytes) {
    std::string error;
    auto database = host_dxf::loadDrawingFromBytes(bytes, "test.dxf", error);
    return {std::move(database), error};
}

LoadedDrawing LoadedDrawing::fromFile(const std::string& path) {
    std::string error;
    auto database = host_dxf::loadDrawing(path, error);
    return {std::move(database), error};
}

const host_dxf::DxfDrawingSource& LoadedDrawing::source() const {
    return dynamic_cast<const host_dxf::DxfDrawingSource&>(*database_->source());
}

const host_dxf::FileOutline& LoadedDrawing::outline() const {
    return source().outline();
}

std::vector<AcDbObjectId> LoadedDrawing::entitiesOf(AcDbObjectId block) const {
    const auto* const record = host_db::peek<AcDbBlockTableRecord>(block);
    return record == nullptr ? std::vector<AcDbObjectId>() : record->entityIds();
}

std::vector<AcDbObjectId> LoadedDrawing::modelSpace() const {
    return entitiesOf(database_->modelSpaceId());
}

AcDbObjectId LoadedDrawing::block(const wchar_t* name) const {
    const auto* const table = host_db::peek<AcDbBlockTable>(database_->blockTableId());
    return table == nullptr ? AcDbObjectId::kNull : table->find(name);
}

AcDbObjectId LoadedDrawing::modelEntityId(std::size_t index) const {
    const std::vector<AcDbObjectId> ids = modelSpace();
    if (index >= ids.size()) {
        ADD_FAILURE() << "model space has " << ids.size() << " entities, wanted index " << index;
        return {};
    }
    return ids[index];
}

AcDbObjectId LoadedDrawing::byHandle(std::uint64_t handle) const {
    AcDbObjectId id;
    database_->getAcDbObjectId(id, false, AcDbHandle(handle));
    return id;
}

std::vector<std::wstring> xdataLines(const AcDbObject& object, const wchar_t* application) {
    std::vector<std::wstring> lines;
    resbuf* const chain = object.xData(application);
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        lines.push_back(lineOf(*item));
    }
    acutRelRb(chain);
    return lines;
}

std::vector<std::wstring> recordNames(AcDbObjectId table) {
    std::vector<std::wstring> names;
    const auto* const opened = host_db::peek<AcDbSymbolTable>(table);
    if (opened == nullptr) {
        ADD_FAILURE() << "no such table";
        return names;
    }
    for (const AcDbObjectId id : opened->recordIds()) {
        names.emplace_back(host_db::peek<AcDbSymbolTableRecord>(id)->name().GetString());
    }
    return names;
}

std::string loadError(const std::string& bytes) {
    std::string error;
    if (host_dxf::loadDrawingFromBytes(bytes, "a.dxf", error) != nullptr) {
        ADD_FAILURE() << "the drawing was read";
        return "";
    }
    return error;
}

} // namespace dxf_test
