#pragma once

#include "database/ResultItems.h"
#include "dxf/FileEdits.h"
#include "dxf/RawRecord.h"
#include "dxf/RecordDescription.h"
#include "dxf/TagWriter.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace host_dxf {

/// Gives a group of the file the value of `field`; in a text file the line of its code stays.
void overwriteGroup(const DxfSource& file, const DxfTag& tag, const Field& field, TagWriter& writer,
                    FileEdits& edits);

/// Changes single groups of a record that stands in the file; every other group, comment and
/// spelling stays as it is.
class RecordEditor {
public:
    /// All must outlive the editor. `writer` is used from empty to empty.
    RecordEditor(const DxfSource& file, const RawRecord& record, TagWriter& writer,
                 FileEdits& edits)
        : file_(file), record_(record), writer_(writer), edits_(edits) {}

    /// Changes the groups in which `after` differs from `before`, which describes the record.
    void change(const RecordDescription& before, const RecordDescription& after);

    /// Sets one field, changing its group or adding one behind `anchor`, an offset in the record.
    void set(const Field& field, std::size_t anchor);

    /// Sets the handle of the extension dictionary, 0 for none.
    void setExtensionDictionary(std::uint64_t handle);

    /// Takes a group out.
    void drop(const DxfTag& tag) { edits_.erase(tag.begin, tag.end); }
    /// Takes out every field of that code.
    void dropFields(int code);

    /// Behind the last field, where a new one may stand.
    std::size_t fieldsEnd() const;
    /// Behind the group of the handle, or behind the group 0 without one.
    std::size_t headEnd() const;

    void insert(std::size_t place, std::string text) { edits_.insert(place, std::move(text)); }
    TagWriter& writer() { return writer_; }
    const RawRecord& record() const { return record_; }
    const DxfSource& file() const { return file_; }

    /// Puts `text` in the place of the groups from index `first` to before `last`; in front of
    /// `place` when these are none.
    void replaceGroups(std::size_t first, std::size_t last, std::size_t place, std::string text);

private:
    struct Element {
        std::size_t first; ///< index of its first group
        std::size_t last;  ///< one past its last group
    };

    bool isInList(const FieldList& list, const RawRecord::Group& group) const;
    std::vector<Element> elementsOf(const FieldList& list) const;
    void changeList(const FieldList& before, const FieldList& after, std::size_t anchor);
    void changeElements(const std::vector<Element>& places, const std::vector<Fields>& before,
                        const std::vector<Fields>& wanted, std::size_t start, bool statesWidths);
    void rewriteList(const FieldList& before, const FieldList& after, std::size_t anchor);
    void changeElement(const Element& place, const Fields& before, const Fields& after,
                       bool statesWidths);
    std::string written(std::span<const Fields> elements);
    void overwrite(const DxfTag& tag, const Field& field) {
        overwriteGroup(file_, tag, field, writer_, edits_);
    }
    bool spreadWidths(std::vector<Fields>& elements);

    const DxfSource& file_;
    const RawRecord& record_;
    TagWriter& writer_;
    FileEdits& edits_;
};

} // namespace host_dxf
