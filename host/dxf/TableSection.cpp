#include "dxf/LoadContext.h"
#include "dxf/Sections.h"
#include "dxf/TableRecords.h"

#include <optional>

namespace host_dxf {

namespace {

/// Reads one table, from its TABLE to its ENDTAB.
class TableLoader {
public:
    /// `reader` stands at the TABLE; `enters` says whether the table's contents go to the database.
    TableLoader(LoadContext& context, RecordReader& reader, bool enters)
        : context_(context), reader_(reader), enters_(enters) {}

    FilePart load() {
        reader_.read(record_);
        const std::string name(record_.text(2));
        if (name.empty()) {
            throw DxfFailure(record_.position, "a TABLE without a name (group 2)");
        }
        FilePart part{FilePart::Kind::Table, name,
                      record_.range,         record_.range.end,
                      record_.range.end,     AcDbObjectId::kNull};
        if (enters_) {
            adopt(name);
        }
        loadRecords(name);
        reader_.read(record_);
        part.bodyEnd = record_.range.begin;
        part.range.end = record_.range.end;
        return part;
    }

private:
    void adopt(std::string_view name) {
        const std::optional<LoadContext::Table> table = tableOfName(name);
        if (!table || LoadContext::ownHandle(record_) == 0 || !context_.isFirstTable(*table)) {
            context_.claimHandle(record_);
        } else if (!context_.builder().adoptTable(*table, context_.objectHeader(record_))) {
            LoadContext::requireAdded(AcDbObjectId::kNull, record_);
        }
    }

    void loadRecords(std::string_view tableName) {
        while (!reader_.atRecord("ENDTAB")) {
            if (reader_.atRecord("ENDSEC") || reader_.atRecord("TABLE") ||
                reader_.atRecord("SECTION") || reader_.atRecord("EOF")) {
                reader_.failExpecting("ENDTAB");
            }
            reader_.read(record_);
            if (enters_ && (record_.type != tableName || !addTableRecord(context_, record_))) {
                context_.claimHandle(record_);
            }
        }
    }

    LoadContext& context_;
    RecordReader& reader_;
    DxfRecord record_;
    bool enters_;
};

} // namespace

void loadTables(LoadContext& context) {
    RecordReader& reader = context.reader();
    const FilePosition applications = context.survey().applicationTable;
    const bool ahead =
        context.survey().hasApplicationTable && applications.offset >= reader.peek().begin;
    if (ahead) {
        RecordReader aheadReader(context.file(), applications);
        TableLoader(context, aheadReader, true).load();
    }
    while (!reader.atRecord("ENDSEC")) {
        if (!reader.atRecord("TABLE")) {
            reader.failExpecting("TABLE or ENDSEC");
        }
        const bool entered = ahead && reader.peek().begin == applications.offset;
        context.outline().parts.push_back(TableLoader(context, reader, !entered).load());
    }
    context.completeBlocks();
}

} // namespace host_dxf
