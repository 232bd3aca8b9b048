#pragma once

#include "database/DatabaseBuilder.h"
#include "dxf/DxfDrawingSource.h"
#include "dxf/FileSurvey.h"
#include "dxf/RecordReader.h"
#include "dxf/XdataNotes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace host_dxf {

/// What the readers of all sections share while one drawing is loaded: the file, the database that
/// is being filled, and the names met so far.
class LoadContext {
public:
    using Table = host_db::DatabaseBuilder::Table;

    /// `source` outlives the context. `notes` are the source's when it belongs to the database, so
    /// that the database finds extended data there; null when it does not.
    LoadContext(AcDbDatabase& database, const DxfDrawingSource& source, const FileSurvey& survey,
                XdataNotes* notes);

    RecordReader& reader() { return reader_; }
    const DxfSource& file() const { return file_; }
    host_db::DatabaseBuilder& builder() { return builder_; }
    FileOutline& outline() { return outline_; }
    const FileSurvey& survey() const { return survey_; }

    std::wstring decode(std::string_view bytes) const { return decoder_.decode(bytes); }
    CString decodeText(std::string_view bytes) const;
    const TextDecoder& decoder() const { return decoder_; }

    /// Handle, bytes, applications and extension dictionary of a record.
    host_db::ObjectHeader objectHeader(const DxfRecord& record);
    /// The same with layer, linetype, colour and visibility.
    host_db::EntityHeader entityHeader(const DxfRecord& record);

    /// The record's own handle, 0 without one.
    static std::uint64_t ownHandle(const DxfRecord& record);
    /// The handle of the record's owner, 0 when the file names none.
    static std::uint64_t ownerHandle(const DxfRecord& record);
    /// Marks the handle of a record that becomes no object of its own. Throws DxfFailure when
    /// another record has it.
    void claimHandle(const DxfRecord& record);
    /// Throws DxfFailure for a record whose handle another one has when `added` is null.
    static void requireAdded(AcDbObjectId added, const DxfRecord& record);

    /// Record of a layer, linetype or text style by its undecoded name; one that the tables lack is
    /// made. Null for an empty name.
    AcDbObjectId layer(std::string_view name);
    AcDbObjectId linetype(std::string_view name);
    AcDbObjectId textStyle(std::string_view name);
    /// The definition of that name, null when the drawing has none.
    AcDbObjectId block(std::string_view name);

    /// Takes a block record of the tables under its handle.
    void noteBlockRecord(std::uint64_t handle, AcDbObjectId id);
    /// Enters the definitions that only the BLOCKS section names. To be called when the tables are
    /// read; later calls do nothing.
    void completeBlocks();
    /// The definition to fill for a BLOCK of this name; one that is filled already is no candidate.
    AcDbObjectId definitionToFill(const DxfRecord& block);
    /// The space for an entity of the ENTITIES section.
    AcDbObjectId spaceOf(const DxfRecord& entity);
    /// Takes the layout object of the space that the block record with this handle is.
    void noteLayout(std::uint64_t blockHandle, AcDbObjectId layout);
    /// Takes the undecoded name of the drawing's current layer.
    void noteCurrentLayer(std::string_view name) { currentLayer_ = name; }
    /// The root dictionary.
    AcDbObjectId namedObjects() const { return database_.namedObjectsDictionaryId(); }
    /// True the first time it is asked for a table.
    bool isFirstTable(Table table) { return tables_.insert(table).second; }
    /// To be called once, when all sections are read.
    void finish();

    /// The name under which the database holds the definition that the file calls so.
    std::wstring blockName(std::string_view name) const;

private:
    using NameCache = std::unordered_map<std::string_view, AcDbObjectId>;

    AcDbObjectId cached(NameCache& cache, Table table, std::string_view name);
    std::uint32_t application(std::string_view name);
    void numberApplications(const DxfRecord& record);
    std::uint32_t noteXdata(const DxfRecord& record);
    AcDbObjectId paperSpaceOf(const DxfRecord& entity);
    bool isSpace(AcDbObjectId block) const;
    void nameSpaces();

    AcDbDatabase& database_;
    FileSurvey survey_;
    const DxfSource& file_;
    const TextDecoder& decoder_;
    XdataNotes* notes_;
    RecordReader reader_;
    host_db::DatabaseBuilder builder_;
    FileOutline outline_;
    NameCache layers_;
    NameCache linetypes_;
    NameCache textStyles_;
    NameCache blocks_;
    std::unordered_map<std::string_view, std::uint32_t> applications_;
    std::vector<std::uint32_t> applicationNumbers_; ///< of one record, reused
    std::vector<XdataNotes::Section> sections_;     ///< of one record, reused
    std::unordered_map<std::uint64_t, AcDbObjectId> blockRecords_;
    std::vector<AcDbObjectId> spaces_;
    std::unordered_set<AcDbObjectId> filled_;
    std::unordered_set<Table> tables_;
    std::string_view currentLayer_;
    bool blocksComplete_ = false;
};

} // namespace host_dxf
