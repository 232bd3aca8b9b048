#include "dxf/RecordEditor.h"

#include "dxf/DxfRecord.h"

#include <algorithm>

namespace host_dxf {

namespace {

constexpr int colorCode = 62;

std::size_t commonStart(const std::vector<Fields>& a, const std::vector<Fields>& b) {
    const std::size_t most = std::min(a.size(), b.size());
    std::size_t count = 0;
    while (count < most && sameValues(a[count], b[count])) {
        ++count;
    }
    return count;
}

std::size_t commonEnd(const std::vector<Fields>& a, const std::vector<Fields>& b,
                      std::size_t start) {
    const std::size_t most = std::min(a.size(), b.size()) - start;
    std::size_t count = 0;
    while (count < most && sameValues(a[a.size() - 1 - count], b[b.size() - 1 - count])) {
        ++count;
    }
    return count;
}

bool isWidth(const Field& field) {
    return field.code == 40 || field.code == 41;
}

bool haveWidth(const std::vector<Fields>& elements, double width) {
    return std::all_of(elements.begin(), elements.end(), [width](const Fields& element) {
        return std::all_of(element.begin(), element.end(), [width](const Field& field) {
            return !isWidth(field) || std::get<double>(field.value) == width;
        });
    });
}

} // namespace

std::size_t RecordEditor::fieldsEnd() const {
    std::size_t end = record_.bodyBegin;
    for (const RawRecord::Group& group : record_.groups) {
        if (group.part != RecordPart::Xdata && group.part != RecordPart::Embedded) {
            end = group.tag.end;
        } else if (group.tag.code >= 1000) {
            break;
        }
    }
    return end;
}

std::size_t RecordEditor::headEnd() const {
    const DxfTag* const handle = record_.field(record_.type == "DIMSTYLE" ? 105 : 5);
    return handle == nullptr ? record_.bodyBegin : handle->end;
}

void overwriteGroup(const DxfSource& file, const DxfTag& tag, const Field& field, TagWriter& writer,
                    FileEdits& edits) {
    if (!file.isText()) {
        writer.field(field);
        edits.replace(tag.begin, tag.end, writer.take());
        return;
    }
    const auto begin = static_cast<std::size_t>(tag.text.data() - file.bytes().data());
    edits.replace(begin, begin + tag.text.size(), writer.valueText(field));
}

void RecordEditor::set(const Field& field, std::size_t anchor) {
    const DxfTag* const tag = record_.field(field.code);
    if (tag == nullptr) {
        writer_.field(field);
        edits_.insert(anchor, writer_.take());
        return;
    }
    Field kept = field;
    if (auto* const bits = std::get_if<std::int64_t>(&kept.value); bits != nullptr) {
        *bits = (tag->integer & ~field.mask) | (*bits & field.mask);
        if (*bits == tag->integer) {
            return;
        }
    }
    overwrite(*tag, kept);
}

void RecordEditor::dropFields(int code) {
    for (const RawRecord::Group& group : record_.groups) {
        if (group.part == RecordPart::Fields && group.tag.code == code) {
            drop(group.tag);
        }
    }
}

void RecordEditor::change(const RecordDescription& before, const RecordDescription& after) {
    // Behind the field that stands before a missing one, its subclass's marker at the least.
    std::size_t anchor = headEnd();
    std::size_t markersFrom = record_.begin;
    for (std::size_t g = 0; g < after.groups.size() && g < before.groups.size(); ++g) {
        const DxfTag* const marker = record_.marker(after.groups[g].marker, markersFrom);
        if (marker != nullptr) {
            anchor = marker->end;
            markersFrom = marker->end;
        }
        const Fields& old = before.groups[g].fields;
        const Fields& now = after.groups[g].fields;
        for (std::size_t f = 0; f < now.size() && f < old.size(); ++f) {
            if (old[f].value != now[f].value && now[f].mask != 0) {
                set(now[f], anchor);
                if (now[f].code == colorCode) {
                    // A true colour and a colour book's name would win over the number.
                    dropFields(420);
                    dropFields(430);
                }
            }
            const DxfTag* const tag = record_.field(now[f].code);
            anchor = tag != nullptr && tag->begin >= anchor ? tag->end : anchor;
        }
    }
    changeList(before.list, after.list, anchor);
}

bool RecordEditor::isInList(const FieldList& list, const RawRecord::Group& group) const {
    return group.part == RecordPart::Fields &&
           std::find(list.codes.begin(), list.codes.end(), group.tag.code) != list.codes.end();
}

std::vector<RecordEditor::Element> RecordEditor::elementsOf(const FieldList& list) const {
    std::vector<Element> elements;
    for (std::size_t i = 0; i < record_.groups.size(); ++i) {
        if (!isInList(list, record_.groups[i])) {
            continue;
        }
        if (record_.groups[i].tag.code == list.codes.front()) {
            elements.push_back({i, i + 1});
        } else if (!elements.empty()) {
            elements.back().last = i + 1;
        }
    }
    return elements;
}

std::string RecordEditor::written(std::span<const Fields> elements) {
    for (const Fields& element : elements) {
        writer_.fields(element);
    }
    return writer_.take();
}

void RecordEditor::replaceGroups(std::size_t first, std::size_t last, std::size_t place,
                                 std::string text) {
    if (first >= last) {
        edits_.insert(place, std::move(text));
        return;
    }
    const auto& groups = record_.groups;
    edits_.replace(groups[first].tag.begin, groups[last - 1].tag.end, std::move(text));
}

void RecordEditor::rewriteList(const FieldList& before, const FieldList& after,
                               std::size_t anchor) {
    for (const RawRecord::Group& group : record_.groups) {
        if (isInList(before, group)) {
            drop(group.tag);
        }
    }
    edits_.insert(anchor, written(after.elements));
}

// One width for all vertices rules out widths of single ones, so it goes when they come.
bool RecordEditor::spreadWidths(std::vector<Fields>& elements) {
    constexpr int constantWidthCode = 43;
    const DxfTag* const constant =
        record_.type == "LWPOLYLINE" ? record_.field(constantWidthCode) : nullptr;
    if (constant == nullptr) {
        return false;
    }
    const bool spread = !haveWidth(elements, constant->real);
    if (spread) {
        drop(*constant);
    }
    for (Fields& element : elements) {
        for (Field& field : element) {
            field.optional = isWidth(field) ? !spread : field.optional;
        }
    }
    return spread;
}

void RecordEditor::changeElement(const Element& place, const Fields& before, const Fields& after,
                                 bool statesWidths) {
    const std::size_t begin = record_.groups[place.first].tag.begin;
    if (before.size() != after.size()) {
        // A dash that had a text and has none, or the other way round.
        replaceGroups(place.first, place.last, begin, written({&after, 1}));
        return;
    }
    std::size_t anchor = record_.groups[place.first].tag.end;
    for (std::size_t f = 0; f < after.size() && f < before.size(); ++f) {
        const DxfTag* found = nullptr;
        for (std::size_t i = place.first; i < place.last; ++i) {
            const RawRecord::Group& group = record_.groups[i];
            if (group.part == RecordPart::Fields && group.tag.code == after[f].code) {
                found = &group.tag; // the last one counts for readers
            }
        }
        const bool changed = before[f].value != after[f].value;
        if (changed && found != nullptr) {
            overwrite(*found, after[f]);
        } else if (found == nullptr && (changed || (statesWidths && isWidth(after[f])))) {
            writer_.field(after[f]);
            edits_.insert(anchor, writer_.take());
        }
        anchor = found == nullptr ? anchor : std::max(anchor, found->end);
    }
}

void RecordEditor::changeList(const FieldList& before, const FieldList& after, std::size_t anchor) {
    std::vector<Fields> wanted = after.elements;
    const std::vector<Element> places = elementsOf(before);
    const std::size_t start = commonStart(before.elements, wanted);
    if (start == before.elements.size() && start == wanted.size()) {
        return;
    }
    if (before.scattered || places.empty() || places.size() != before.elements.size()) {
        rewriteList(before, after, anchor);
        return;
    }
    const bool statesWidths = spreadWidths(wanted);
    changeElements(places, before.elements, wanted, start, statesWidths);
}

void RecordEditor::changeElements(const std::vector<Element>& places,
                                  const std::vector<Fields>& before,
                                  const std::vector<Fields>& wanted, std::size_t start,
                                  bool statesWidths) {
    const std::size_t end = commonEnd(before, wanted, start);
    const std::size_t old = before.size();
    const std::size_t oldMiddle = old - end - start;
    const std::size_t newMiddle = wanted.size() - end - start;
    const std::size_t paired = std::min(oldMiddle, newMiddle);
    for (std::size_t i = 0; i < old - oldMiddle + paired; ++i) {
        // Those outside the middle are alike, but may have to state their widths now.
        const bool inEnd = i >= start + paired;
        const std::size_t from = inEnd ? i + oldMiddle - paired : i;
        const std::size_t to = inEnd ? i + newMiddle - paired : i;
        changeElement(places[from], before[from], wanted[to], statesWidths);
    }
    const std::size_t first = start + paired;
    const std::size_t place = first == 0 ? record_.groups[places[0].first].tag.begin
                                         : record_.groups[places[first - 1].last - 1].tag.end;
    const std::span<const Fields> added(wanted.data() + first, newMiddle - paired);
    if (oldMiddle > paired) {
        replaceGroups(places[first].first, places[first + oldMiddle - paired - 1].last, place,
                      written(added));
    } else {
        edits_.insert(place, written(added));
    }
}

void RecordEditor::setExtensionDictionary(std::uint64_t handle) {
    std::size_t first = record_.groups.size();
    std::size_t last = first;
    std::uint64_t present = 0;
    for (std::size_t i = 0; i < record_.groups.size(); ++i) {
        const RawRecord::Group& group = record_.groups[i];
        const bool closes = last == i && first < last && group.part == RecordPart::Bracket;
        if (group.inExtensionDictionary || closes) {
            first = std::min(first, i);
            last = i + 1;
        }
        if (group.inExtensionDictionary && group.tag.code == 360) {
            present = handleOf(group.tag);
        }
    }
    if (present == handle) {
        return;
    }
    if (handle != 0) {
        writer_.plain(102, "{ACAD_XDICTIONARY");
        writer_.handle(360, handle);
        writer_.plain(102, "}");
    }
    replaceGroups(first, last, headEnd(), writer_.take());
}

} // namespace host_dxf
