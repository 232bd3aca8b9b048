#include "database/AcDbObject.h"

#include "database/AcDbDatabase.h"
#include "database/DatabaseRegistry.h"
#include "database/DictionaryHolder.h"
#include "database/OpenObjects.h"
#include "database/UndoJournal.h"
#include "platform/HostEvents.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <string_view>

ACRX_DEFINE_MEMBERS(AcDbObject, AcRxObject, nullptr)

namespace {

/// Extended data of one object may take this many bytes at most.
constexpr std::size_t kMaxXdataBytes = 16383;

bool isSection(const host_db::ResultItem& item) {
    return item.type == AcDb::kDxfRegAppName;
}

const CString& sectionName(const host_db::ResultItem& item) {
    return std::get<CString>(item.value);
}

bool isSectionOf(const host_db::ResultItem& item, const wchar_t* application) {
    return isSection(item) && host_text::compareNoCase(sectionName(item), application) == 0;
}

using ItemIterator = host_db::ResultItems::const_iterator;

ItemIterator sectionEnd(ItemIterator section, ItemIterator end) {
    return std::find_if(section + 1, end, isSection);
}

bool isBrace(const host_db::ResultItem& item) {
    return item.type == AcDb::kDxfXDControlString;
}

/// What texts take: names of applications and layers and handles stand as references of eight
/// bytes, braces as one byte, others as their length in two bytes and two for each character.
std::size_t storedTextSize(const host_db::ResultItem& item, const CString& text) {
    if (isSection(item) || item.type == AcDb::kDxfXDLayer || item.type == AcDb::kDxfXDHandle) {
        return 8;
    }
    return isBrace(item) ? 1 : 2 + 2 * static_cast<std::size_t>(text.GetLength());
}

std::size_t storedSize(const host_db::ResultItem& item) {
    constexpr std::size_t kCodeBytes = 1;
    if (const auto* text = std::get_if<CString>(&item.value)) {
        return kCodeBytes + storedTextSize(item, *text);
    }
    if (const auto* bytes = std::get_if<std::string>(&item.value)) {
        return kCodeBytes + 1 + bytes->size();
    }
    if (std::holds_alternative<AcGePoint3d>(item.value)) {
        return kCodeBytes + 3 * sizeof(double);
    }
    if (std::holds_alternative<double>(item.value)) {
        return kCodeBytes + sizeof(double);
    }
    return kCodeBytes + (item.type == AcDb::kDxfXDInteger32 ? 4 : 2);
}

/// Whether each opening brace is closed again within its application.
bool hasBracesInPairs(const host_db::ResultItems& items) {
    std::size_t depth = 0;
    for (const host_db::ResultItem& item : items) {
        if (isSection(item) && depth > 0) {
            return false;
        }
        if (!isBrace(item)) {
            continue;
        }
        const std::wstring_view text = std::get<CString>(item.value).GetString();
        if (text != L"{" && (text != L"}" || depth == 0)) {
            return false;
        }
        depth = text == L"{" ? depth + 1 : depth - 1;
    }
    return depth == 0;
}

bool isXdata(const host_db::ResultItems& items) {
    return !items.empty() && isSection(items.front()) && hasBracesInPairs(items) &&
           std::all_of(items.begin(), items.end(), [](const host_db::ResultItem& item) {
               return item.type >= AcDb::kDxfXDAsciiString && item.type <= AcDb::kDxfXDInteger32 &&
                      host_db::valueKind(item.type) != host_db::ValueKind::Unknown;
           });
}

/// The old sections that the new ones do not name, then the new ones that hold anything.
host_db::ResultItems merged(const host_db::ResultItems& old, const host_db::ResultItems& added) {
    const auto isNamed = [&](const CString& name) {
        return std::any_of(added.begin(), added.end(), [&](const host_db::ResultItem& item) {
            return isSectionOf(item, name);
        });
    };
    host_db::ResultItems result;
    for (auto it = old.begin(); it != old.end();) {
        const auto end = sectionEnd(it, old.end());
        if (!isNamed(sectionName(*it))) {
            result.insert(result.end(), it, end);
        }
        it = end;
    }
    for (auto it = added.begin(); it != added.end();) {
        const auto end = sectionEnd(it, added.end());
        if (end - it > 1) {
            result.insert(result.end(), it, end);
        }
        it = end;
    }
    return result;
}

} // namespace

AcDbObject::~AcDbObject() = default;

AcDbObject::AcDbObject(const AcDbObject& other) : AcRxObject(other) {
    host_db::ResultItems items = other.readXdata();
    if (!items.empty()) {
        storeXdata(std::move(items));
    }
    takeCopyOrigin(other);
}

host_dxf::CopyOrigin AcDbObject::copyOrigin() const {
    return extra_ ? extra_->copyOrigin : host_dxf::CopyOrigin();
}

void AcDbObject::takeCopyOrigin(const AcDbObject& other) {
    const AcDbDatabase* const home = other.database();
    const bool stands = home != nullptr && !other.source_.isEmpty();
    const host_dxf::CopyOrigin origin =
        stands ? host_dxf::CopyOrigin{other.source_, home->serial()} : other.copyOrigin();
    if (!origin.record.isEmpty()) {
        extra().copyOrigin = origin;
    }
}

host_dxf::SourceRange AcDbObject::replacedRange() const {
    return extra_ ? extra_->replaced : host_dxf::SourceRange();
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const {
    handle = id_.handle();
}

AcDbDatabase* AcDbObject::database() const {
    return host_db::homeOf(id_);
}

Acad::ErrorStatus AcDbObject::close() {
    return host_db::OpenObjects::close(*this);
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
    return host_db::OpenObjects::upgrade(*this);
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
    return host_db::OpenObjects::downgrade(*this);
}

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
    if (id_.isNull()) {
        return Acad::eNotInDatabase;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        erased_ = erasing;
        if (host::isListening()) {
            host::announce(host_db::eventLine(erasing ? L"erase" : L"unerase", id_));
        }
    }
    return status;
}

Acad::ErrorStatus AcDbObject::prepareWrite() {
    if (id_.isNull()) {
        return Acad::eOk;
    }
    if (!openForWrite_) {
        return Acad::eNotOpenForWrite;
    }
    AcDbDatabase& owner = *database();
    if (owner.journal_ != nullptr) {
        owner.journal_->noteChange(*this);
    }
    modified_ = true;
    ++owner.revision_;
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbObject::savedCopy() const {
    return std::unique_ptr<AcDbObject>(static_cast<AcDbObject*>(clone()));
}

void AcDbObject::takeLists(AcDbObject& /*changed*/) {}

void AcDbObject::disown(const AcDbObject& /*owned*/) {}

Acad::ErrorStatus AcDbObject::handOverTo(AcDbObject* object, Adesk::Boolean keepXdata,
                                         Adesk::Boolean keepExtensionDictionary) {
    if (object == nullptr || !object->id_.isNull()) {
        return object == nullptr ? Acad::eNullObjectPointer : Acad::eAlreadyInDb;
    }
    const Acad::ErrorStatus status = id_.isNull() ? Acad::eNotInDatabase : prepareWrite();
    if (status != Acad::eOk) {
        return status;
    }
    AcDbDatabase& owner = *database();
    host_db::ResultItems xdata = keepXdata != 0 ? readXdata() : object->readXdata();
    object->id_ = id_;
    object->ownerId_ = ownerId_;
    object->openForWrite_ = true;
    object->onAdded(owner);
    if (!xdata.empty()) {
        object->storeXdata(std::move(xdata));
    }
    if (keepExtensionDictionary != 0 && !extensionDictionary().isNull()) {
        object->extra().extensionDictionary = extensionDictionary();
    }
    const host_dxf::SourceRange replaced = source_.isEmpty() ? replacedRange() : source_;
    if (!replaced.isEmpty()) {
        object->extra().replaced = replaced;
    }
    owner.replace(id_, object);
    id_.setNull();
    openForWrite_ = false;
    return Acad::eOk;
}

void AcDbObject::onAdded(AcDbDatabase& database) {
    if (!ownXdata_) {
        return;
    }
    for (const host_db::ResultItem& item : extra_->xdata) {
        if (isSection(item)) {
            database.registerApplication(sectionName(item));
        }
    }
    storeXdata(std::move(extra_->xdata));
}

AcDbObject::Extra& AcDbObject::extra() {
    if (!extra_) {
        extra_ = std::make_unique<Extra>();
    }
    return *extra_;
}

AcDbObjectId AcDbObject::extensionDictionary() const {
    return extra_ ? extra_->extensionDictionary : AcDbObjectId();
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
    if (id_.isNull()) {
        return Acad::eNotInDatabase;
    }
    if (!host_db::holdsDictionaries(*database())) {
        return Acad::eNotApplicable;
    }
    if (!extensionDictionary().isNull()) {
        return Acad::eAlreadyInDb;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status != Acad::eOk) {
        return status;
    }
    // The drawing takes it over.
    AcDbDictionary* dictionary = std::make_unique<AcDbDictionary>().release();
    AcDbObjectId id;
    database()->addAcDbObject(id, dictionary, id_);
    extra().extensionDictionary = id;
    return dictionary->close();
}

host_db::ResultItems AcDbObject::readXdata() const {
    if (ownXdata_) {
        return extra_->xdata;
    }
    const AcDbDatabase* owner = database();
    if (source_.xdata == 0 || owner == nullptr || owner->source() == nullptr) {
        return {};
    }
    resbuf* chain = owner->source()->readXdata(source_);
    host_db::ResultItems items = host_db::itemsOf(chain);
    acutRelRb(chain);
    return items;
}

void AcDbObject::storeXdata(host_db::ResultItems items) {
    if (AcDbDatabase* owner = database()) {
        std::vector<std::uint32_t> applications;
        for (const host_db::ResultItem& item : items) {
            if (isSection(item)) {
                applications.push_back(owner->applications_.add(sectionName(item)));
            }
        }
        applicationSet_ = owner->applications_.setOf(applications);
    }
    extra().xdata = std::move(items);
    ownXdata_ = true;
}

resbuf* AcDbObject::xData(const ACHAR* application) const {
    const host_db::ResultItems items = readXdata();
    if (application == nullptr) {
        return host_db::chainOf(items);
    }
    const auto section = std::find_if(items.begin(), items.end(), [&](const auto& item) {
        return isSectionOf(item, application);
    });
    if (section == items.end()) {
        return nullptr;
    }
    return host_db::chainOf(host_db::ResultItems(section, sectionEnd(section, items.end())));
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain) {
    const host_db::ResultItems added = host_db::itemsOf(chain);
    if (!isXdata(added)) {
        return Acad::eInvalidResBuf;
    }
    const AcDbDatabase* owner = database();
    for (const host_db::ResultItem& item : added) {
        if (isSection(item) && owner != nullptr &&
            owner->applications().find(sectionName(item)) == host_db::XdataApplications::kNone) {
            return Acad::eRegappIdNotFound;
        }
    }
    host_db::ResultItems result = merged(readXdata(), added);
    std::size_t size = 0;
    for (const host_db::ResultItem& item : result) {
        size += storedSize(item);
    }
    if (size > kMaxXdataBytes) {
        return Acad::eXdataSizeExceeded;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        storeXdata(std::move(result));
    }
    return status;
}

const ACHAR* AcDbObject::dxfTypeName() const {
    const ACHAR* name = isA()->dxfName();
    return name == nullptr ? L"" : name;
}

bool AcDbObject::hasXdataOf(std::uint32_t application) const {
    const AcDbDatabase* owner = database();
    return owner != nullptr && owner->applications().contains(applicationSet_, application);
}
