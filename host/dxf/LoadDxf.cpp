#include "dxf/LoadDxf.h"

#include "database/AcDbDatabase.h"
#include "dxf/LoadContext.h"
#include "dxf/Sections.h"

#include <array>
#include <exception>
#include <new>
#include <utility>

namespace host_dxf {

namespace {

using SectionLoader = void (*)(LoadContext&);

constexpr std::array<std::pair<std::string_view, SectionLoader>, 5> sectionLoaders{{
    {"HEADER", loadHeader},
    {"TABLES", loadTables},
    {"BLOCKS", loadBlocks},
    {"ENTITIES", loadEntities},
    {"OBJECTS", loadObjects},
}};

SectionLoader loaderOf(std::string_view section) {
    for (const auto& [name, loader] : sectionLoaders) {
        if (name == section) {
            return loader;
        }
    }
    return passOverSection;
}

void loadSection(LoadContext& context) {
    constexpr int nameCode = 2;
    RecordReader& reader = context.reader();
    const DxfTag head = reader.peek();
    reader.skip();
    if (reader.peek().code != nameCode) {
        reader.failExpecting("a section's name (group 2)");
    }
    const std::string name(reader.peek().text);
    const std::size_t place = context.outline().parts.size();
    context.outline().parts.push_back({FilePart::Kind::Section,
                                       name,
                                       {head.begin, head.end, head.line, 0},
                                       reader.peek().end,
                                       reader.peek().end,
                                       AcDbObjectId::kNull});
    reader.skip();
    loaderOf(name)(context);
    FilePart& part = context.outline().parts[place];
    part.bodyEnd = reader.peek().begin;
    part.range.end = reader.peek().end;
    reader.skip();
}

void loadSections(LoadContext& context) {
    RecordReader& reader = context.reader();
    while (!reader.atRecord("EOF")) {
        if (!reader.atRecord("SECTION")) {
            reader.failExpecting("SECTION or EOF");
        }
        loadSection(context);
    }
    context.outline().endOfFile = reader.peek().begin;
    context.finish();
}

/// Refuses what is no drawing of this format at all, before its first group is blamed.
void requireDrawing(const DxfSource& file) {
    const FilePosition start{file.isText() ? std::size_t{1} : 0, 0};
    if (file.bytes().empty()) {
        throw DxfFailure(start, "the file is empty");
    }
    if (file.bytes().starts_with("AC10") || file.bytes().starts_with("AC1.")) {
        throw DxfFailure(start, "not a DXF drawing but a DWG one");
    }
    try {
        DxfTag first;
        TagCursor(file).nextUnparsed(first);
    } catch (const DxfFailure& failure) {
        throw DxfFailure(failure.position(), "not a DXF drawing: " + failure.cause());
    }
}

std::unique_ptr<AcDbDatabase> loadFrom(const std::shared_ptr<const DxfSource>& file) {
    requireDrawing(*file);
    const FileSurvey survey = surveyFile(*file);
    auto source = std::make_unique<DxfDrawingSource>(
        file, std::make_shared<const TextDecoder>(survey.codePage, survey.isUtf8));
    DxfDrawingSource& shared = *source;
    auto database = std::make_unique<AcDbDatabase>(false);
    LoadContext context(*database, shared, survey, &shared.xdataNotes());
    context.builder().setSource(std::move(source));
    loadSections(context);
    context.outline().objectCount = database->objects().size();
    shared.setOutline(std::move(context.outline()));
    return database;
}

std::string placeOf(const FilePosition& position) {
    return position.line == 0 ? "offset " + std::to_string(position.offset)
                              : std::to_string(position.line);
}

std::unique_ptr<AcDbDatabase> loadGuarded(const std::shared_ptr<const DxfSource>& file,
                                          std::string& error) {
    try {
        return loadFrom(file);
    } catch (const DxfFailure& failure) {
        error = file->name() + ":" + placeOf(failure.position()) + ": " + failure.cause();
    } catch (const std::bad_alloc&) {
        error = file->name() + ": not enough memory";
    } catch (const std::exception& unexpected) {
        error = file->name() + ": cannot read: " + unexpected.what();
    }
    return nullptr;
}

} // namespace

std::unique_ptr<AcDbDatabase> loadDrawing(const std::string& utf8Path, std::string& error) {
    try {
        const std::shared_ptr<const DxfSource> file = DxfSource::read(utf8Path, error);
        return file == nullptr ? nullptr : loadGuarded(file, error);
    } catch (const std::bad_alloc&) {
        error = utf8Path + ": not enough memory";
        return nullptr;
    }
}

std::unique_ptr<AcDbDatabase> loadDrawingFromBytes(const std::string& bytes,
                                                   const std::string& name, std::string& error) {
    try {
        return loadGuarded(DxfSource::fromBytes(bytes, name), error);
    } catch (const std::bad_alloc&) {
        error = name + ": not enough memory";
        return nullptr;
    }
}

} // namespace host_dxf
