#include "database/AcDbDictionary.h"
#include "database/AcDbUnknownObject.h"
#include "dxf/GroupCode.h"
#include "dxf/ItemCollector.h"
#include "dxf/LoadContext.h"
#include "dxf/Sections.h"

#include <algorithm>
#include <memory>

namespace host_dxf {

namespace {

/// Reads the objects of the section and adds them to the database.
class ObjectLoader {
public:
    explicit ObjectLoader(LoadContext& context)
        : context_(context), resolver_([&context](std::uint64_t handle) {
              return context.builder().idForHandle(handle).asOldId();
          }) {}

    void load() {
        RecordReader& reader = context_.reader();
        while (!reader.atRecord("ENDSEC")) {
            if (reader.atRecord("SECTION") || reader.atRecord("EOF")) {
                reader.failExpecting("an object or ENDSEC");
            }
            reader.read(record_);
            if (record_.is("DICTIONARY")) {
                addDictionary();
            } else if (record_.is("XRECORD")) {
                addXrecord();
            } else {
                addUnknown();
            }
        }
    }

private:
    AcDbObjectId add(std::unique_ptr<AcDbObject> object) {
        const AcDbObjectId owner =
            context_.builder().idForHandle(LoadContext::ownerHandle(record_));
        const AcDbObjectId id =
            context_.builder().addObject(std::move(object), owner, context_.objectHeader(record_));
        LoadContext::requireAdded(id, record_);
        return id;
    }

    void addDictionary() {
        AcDbObjectId id;
        if (rootFound_) {
            id = add(std::make_unique<AcDbDictionary>());
        } else {
            // The first dictionary of the section is the root of all others.
            rootFound_ = true;
            if (!context_.builder().adoptNamedObjects(context_.objectHeader(record_))) {
                LoadContext::requireAdded(AcDbObjectId::kNull, record_);
            }
            id = context_.namedObjects();
        }
        enterEntries(id);
    }

    void enterEntries(AcDbObjectId dictionary) {
        constexpr int nameCode = 3;
        constexpr int softEntryCode = 350;
        constexpr int hardEntryCode = 360;
        const DxfTag* name = nullptr;
        for (const DxfTag& tag : record_.tags) {
            if (tag.code == nameCode) {
                name = &tag;
            } else if (name != nullptr &&
                       (tag.code == softEntryCode || tag.code == hardEntryCode)) {
                enterEntry(dictionary, *name, handleOf(tag));
                name = nullptr;
            }
        }
    }

    void enterEntry(AcDbObjectId dictionary, const DxfTag& name, std::uint64_t entry) {
        if (entry != 0) {
            context_.builder().addDictionaryEntry(dictionary, context_.decode(name.text).c_str(),
                                                  context_.builder().idForHandle(entry));
        }
    }

    void addXrecord() {
        auto xrecord = std::make_unique<AcDbXrecord>();
        host_db::DatabaseBuilder::setXrecordItems(*xrecord, xrecordItems());
        add(std::move(xrecord));
    }

    host_db::ResultItems xrecordItems() const {
        constexpr int cloningFlagCode = 280;
        ItemCollector items(context_.decoder(), resolver_);
        auto tag = std::find_if(record_.tags.begin(), record_.tags.end(), [](const DxfTag& group) {
            return group.code == subclassMarker && group.text == "AcDbXrecord";
        });
        tag += tag == record_.tags.end() ? 0 : 1;
        // What to do on duplicate names stands first; it is no item of the record.
        tag += tag != record_.tags.end() && tag->code == cloningFlagCode ? 1 : 0;
        for (; tag != record_.tags.end(); ++tag) {
            items.add(*tag);
        }
        return items.take();
    }

    void addUnknown() {
        const AcDbObjectId id =
            add(std::make_unique<AcDbUnknownObject>(context_.decodeText(record_.type)));
        if (record_.is("LAYOUT")) {
            const DxfTag* const block = findIn(record_.subclass("AcDbLayout"), 330);
            context_.noteLayout(block == nullptr ? 0 : handleOf(*block), id);
        }
    }

    LoadContext& context_;
    HandleResolver resolver_;
    DxfRecord record_;
    bool rootFound_ = false;
};

} // namespace

void loadObjects(LoadContext& context) {
    ObjectLoader(context).load();
}

} // namespace host_dxf
