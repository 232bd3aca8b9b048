#include "dxf/LoadContext.h"

#include "platform/WideCharacters.h"

#include <algorithm>

namespace host_dxf {

namespace {

constexpr const wchar_t* modelSpaceName = L"*Model_Space";
constexpr const wchar_t* paperSpaceName = L"*Paper_Space";

/// The last version that wrote the spaces' names with a dollar sign.
constexpr std::string_view lastDollarVersion = "AC1009";

bool startsWithNoCase(const std::wstring& text, std::wstring_view start) {
    return text.size() >= start.size() &&
           host_text::compareNoCase(text.substr(0, start.size()).c_str(), start.data()) == 0;
}

/// The groups before the first subclass marker: handle and owner stand there.
std::span<const DxfTag> leadingFields(const DxfRecord& record) {
    const auto end = std::find_if(record.tags.begin(), record.tags.end(),
                                  [](const DxfTag& tag) { return tag.code == 100; });
    return {record.tags.begin(), end};
}

const DxfTag* handleTag(const DxfRecord& record) {
    constexpr int handleCode = 5;
    constexpr int dimStyleHandleCode = 105;
    return findIn(leadingFields(record), record.is("DIMSTYLE") ? dimStyleHandleCode : handleCode);
}

} // namespace

LoadContext::LoadContext(AcDbDatabase& database, const DxfDrawingSource& source,
                         const FileSurvey& survey, XdataNotes* notes)
    : database_(database), survey_(survey), file_(source.file()), decoder_(source.decoder()),
      notes_(notes), reader_(source.file()), builder_(database) {
    builder_.setHandleSeed(std::max(survey.handleSeed, survey.highestHandle + 1));
    outline_.version = survey.version;
    outline_.codePage = survey.codePage;
    outline_.handleSeed = survey.handleSeed;
    outline_.hasHandles = survey.highestHandle != 0;
}

CString LoadContext::decodeText(std::string_view bytes) const {
    return CString(std::wstring_view(decode(bytes)));
}

std::uint64_t LoadContext::ownHandle(const DxfRecord& record) {
    const DxfTag* const tag = handleTag(record);
    return tag == nullptr ? 0 : handleOf(*tag);
}

std::uint64_t LoadContext::ownerHandle(const DxfRecord& record) {
    constexpr int ownerCode = 330;
    const DxfTag* const tag = findIn(leadingFields(record), ownerCode);
    return tag == nullptr ? 0 : handleOf(*tag);
}

void LoadContext::claimHandle(const DxfRecord& record) {
    const std::uint64_t handle = ownHandle(record);
    if (handle != 0 && !builder_.claimHandle(handle)) {
        requireAdded(AcDbObjectId::kNull, record);
    }
}

void LoadContext::requireAdded(AcDbObjectId added, const DxfRecord& record) {
    if (!added.isNull()) {
        return;
    }
    const DxfTag* const tag = handleTag(record);
    if (tag == nullptr) {
        throw DxfFailure(record.position, "no handle is left for " + quotedForMessage(record.type));
    }
    throw DxfFailure(tag->valuePosition(),
                     "handle " + quotedForMessage(tag->text) + " is used twice");
}

host_db::ObjectHeader LoadContext::objectHeader(const DxfRecord& record) {
    host_db::ObjectHeader header;
    header.handle = ownHandle(record);
    numberApplications(record);
    header.source = record.range;
    header.source.xdata = noteXdata(record);
    header.applicationSet =
        applicationNumbers_.empty() ? 0 : builder_.applicationSet(applicationNumbers_);
    header.extensionDictionary = builder_.idForHandle(record.extensionDictionary);
    return header;
}

host_db::EntityHeader LoadContext::entityHeader(const DxfRecord& record) {
    constexpr std::int64_t byLayer = 256;
    host_db::EntityHeader header;
    static_cast<host_db::ObjectHeader&>(header) = objectHeader(record);
    header.layer = layer(record.text(8));
    header.linetype = linetype(record.text(6));
    const std::int64_t color = record.integer(62, byLayer);
    header.color = static_cast<Adesk::UInt16>(color >= 0 && color <= byLayer ? color : byLayer);
    header.invisible = record.integer(60, 0) == 1;
    return header;
}

std::uint32_t LoadContext::application(std::string_view name) {
    const auto known = applications_.find(name);
    if (known != applications_.end()) {
        return known->second;
    }
    const std::uint32_t number = builder_.application(decode(name).c_str());
    applications_.emplace(name, number);
    return number;
}

void LoadContext::numberApplications(const DxfRecord& record) {
    applicationNumbers_.clear();
    for (const DxfTag& tag : record.applications) {
        applicationNumbers_.push_back(application(tag.text));
    }
}

/// Needs the applications of the record numbered.
std::uint32_t LoadContext::noteXdata(const DxfRecord& record) {
    if (notes_ == nullptr || record.applications.empty()) {
        return 0;
    }
    const std::size_t begin = record.applications.front().begin;
    sections_.clear();
    for (std::size_t i = 0; i < record.firstTexts.size(); ++i) {
        const std::string_view text = record.firstTexts[i];
        const std::size_t offset =
            text.data() == nullptr
                ? 0
                : static_cast<std::size_t>(text.data() - file_.bytes().data()) - begin;
        sections_.push_back({applicationNumbers_[i], offset, text});
    }
    return notes_->add(static_cast<std::uint32_t>(begin - record.range.begin), sections_);
}

AcDbObjectId LoadContext::cached(NameCache& cache, Table table, std::string_view name) {
    if (name.empty()) {
        return {};
    }
    const auto known = cache.find(name);
    if (known != cache.end()) {
        return known->second;
    }
    const AcDbObjectId id = builder_.ensureRecord(table, decode(name).c_str());
    cache.emplace(name, id);
    return id;
}

AcDbObjectId LoadContext::layer(std::string_view name) {
    return cached(layers_, Table::Layer, name);
}

AcDbObjectId LoadContext::linetype(std::string_view name) {
    return cached(linetypes_, Table::Linetype, name);
}

AcDbObjectId LoadContext::textStyle(std::string_view name) {
    return cached(textStyles_, Table::TextStyle, name);
}

AcDbObjectId LoadContext::block(std::string_view name) {
    const auto known = blocks_.find(name);
    if (known != blocks_.end()) {
        return known->second;
    }
    const AcDbObjectId id = builder_.findRecord(Table::Block, blockName(name).c_str());
    if (blocksComplete_) {
        blocks_.emplace(name, id);
    }
    return id;
}

std::wstring LoadContext::blockName(std::string_view name) const {
    std::wstring decoded = decode(name);
    if (survey_.version <= lastDollarVersion) {
        if (startsWithNoCase(decoded, L"$MODEL_SPACE")) {
            return modelSpaceName;
        }
        if (startsWithNoCase(decoded, L"$PAPER_SPACE")) {
            return paperSpaceName;
        }
    }
    return decoded;
}

void LoadContext::noteBlockRecord(std::uint64_t handle, AcDbObjectId id) {
    if (handle != 0) {
        blockRecords_.emplace(handle, id);
    }
}

void LoadContext::completeBlocks() {
    if (blocksComplete_) {
        return;
    }
    for (const std::string_view name : survey_.blocks) {
        builder_.ensureBlock(blockName(name).c_str());
    }
    builder_.ensureBlock(modelSpaceName);
    builder_.ensureBlock(paperSpaceName);
    blocksComplete_ = true;
    nameSpaces();
}

void LoadContext::nameSpaces() {
    spaces_.push_back(builder_.findRecord(Table::Block, modelSpaceName));
    const auto add = [this](AcDbObjectId id) {
        if (!id.isNull() && !isSpace(id)) {
            spaces_.push_back(id);
        }
    };
    for (const FileSurvey::Layout& layout : survey_.layouts) {
        const auto record = blockRecords_.find(layout.block);
        add(record == blockRecords_.end() ? AcDbObjectId::kNull : record->second);
    }
    add(builder_.findRecord(Table::Block, paperSpaceName));
    for (const std::string_view name : survey_.blocks) {
        const std::wstring decoded = blockName(name);
        if (startsWithNoCase(decoded, paperSpaceName)) {
            add(builder_.findRecord(Table::Block, decoded.c_str()));
        }
    }
    builder_.setSpaces(spaces_);
}

bool LoadContext::isSpace(AcDbObjectId block) const {
    return std::find(spaces_.begin(), spaces_.end(), block) != spaces_.end();
}

AcDbObjectId LoadContext::definitionToFill(const DxfRecord& block) {
    const std::wstring name = blockName(block.text(2));
    const auto owner = blockRecords_.find(ownerHandle(block));
    AcDbObjectId id = owner == blockRecords_.end() ? builder_.findRecord(Table::Block, name.c_str())
                                                   : owner->second;
    if (!filled_.insert(id).second) {
        // A second definition of one name: references mean the first, its entities are kept.
        id = builder_.addBlock(name.c_str(), 0, {});
        filled_.insert(id);
    }
    return id;
}

AcDbObjectId LoadContext::spaceOf(const DxfRecord& entity) {
    const auto owner = blockRecords_.find(ownerHandle(entity));
    if (owner != blockRecords_.end() && isSpace(owner->second)) {
        return owner->second;
    }
    return entity.integer(67, 0) == 1 ? paperSpaceOf(entity) : spaces_.front();
}

AcDbObjectId LoadContext::paperSpaceOf(const DxfRecord& entity) {
    const std::string_view name = entity.text(410);
    for (const FileSurvey::Layout& layout : survey_.layouts) {
        const auto record = blockRecords_.find(layout.block);
        if (!name.empty() && layout.name == name && record != blockRecords_.end() &&
            isSpace(record->second)) {
            return record->second;
        }
    }
    return builder_.findRecord(Table::Block, paperSpaceName);
}

void LoadContext::noteLayout(std::uint64_t blockHandle, AcDbObjectId layout) {
    const auto record = blockRecords_.find(blockHandle);
    if (record != blockRecords_.end()) {
        builder_.setLayout(record->second, layout);
    }
}

void LoadContext::finish() {
    completeBlocks();
    const AcDbObjectId layer = builder_.findRecord(Table::Layer, decode(currentLayer_).c_str());
    if (!layer.isNull()) {
        builder_.setCurrentLayer(layer);
    }
    builder_.finish();
}

} // namespace host_dxf
