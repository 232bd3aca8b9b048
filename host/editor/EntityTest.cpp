#include "editor/EntityTest.h"

#include "database/AcDbBlockReference.h"
#include "database/AcDbText.h"
#include "database/OpenObject.h"
#include "editor/WildCard.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <unordered_set>

namespace host_ed {

EntityTest::~EntityTest() = default;

namespace {

using host_db::peek;

/// A test made of a plain function.
template<typename Function>
class FunctionTest : public EntityTest {
public:
    explicit FunctionTest(Function function) : function_(std::move(function)) {}
    bool passes(const AcDbEntity& entity) const override { return function_(entity); }

private:
    Function function_;
};

template<typename Function>
std::shared_ptr<const EntityTest> testOf(Function function) {
    return std::make_shared<FunctionTest<Function>>(std::move(function));
}

/// The records of a table whose names match, so that each entity is asked for an id alone.
std::unordered_set<AcDbObjectId> recordsLike(AcDbObjectId tableId, const WildCard& pattern) {
    std::unordered_set<AcDbObjectId> ids;
    if (const auto* table = peek<AcDbSymbolTable>(tableId)) {
        for (const AcDbObjectId id : table->recordIds()) {
            const auto* record = peek<AcDbSymbolTableRecord>(id);
            if (record != nullptr && pattern.matches(record->name().view())) {
                ids.insert(id);
            }
        }
    }
    return ids;
}

template<typename IdOf>
std::shared_ptr<const EntityTest> recordTest(AcDbObjectId table, const WildCard& pattern,
                                             IdOf idOf) {
    return testOf([ids = recordsLike(table, pattern), idOf](const AcDbEntity& entity) {
        const AcDbObjectId id = idOf(entity);
        return !id.isNull() && ids.count(id) != 0;
    });
}

AcDbObjectId blockOf(const AcDbEntity& entity) {
    const auto* reference = AcDbBlockReference::cast(&entity);
    return reference == nullptr ? AcDbObjectId() : reference->blockTableRecord();
}

AcDbObjectId styleOf(const AcDbEntity& entity) {
    const auto* text = AcDbText::cast(&entity);
    return text == nullptr ? AcDbObjectId() : text->textStyle();
}

/// The layouts' names stand in their dictionary; a space without one is known by its own name.
CString layoutName(AcDbObjectId space, const AcDbDatabase& database) {
    CString name;
    if (space == database.modelSpaceId()) {
        return L"Model";
    }
    const auto* root = peek<AcDbDictionary>(database.namedObjectsDictionaryId());
    AcDbObjectId layouts;
    if (root != nullptr && root->getAt(L"ACAD_LAYOUT", layouts) == Acad::eOk) {
        const auto* record = peek<AcDbBlockTableRecord>(space);
        const auto* dictionary = peek<AcDbDictionary>(layouts);
        if (record != nullptr && dictionary != nullptr &&
            dictionary->nameAt(record->getLayoutId(), name) == Acad::eOk) {
            return name;
        }
    }
    const auto* record = peek<AcDbSymbolTableRecord>(space);
    return record == nullptr ? name : record->name();
}

std::shared_ptr<const EntityTest> layoutTest(const WildCard& pattern,
                                             const AcDbDatabase& database) {
    std::unordered_set<AcDbObjectId> spaces;
    for (const AcDbObjectId space : database.spaceIds()) {
        if (pattern.matches(layoutName(space, database).view())) {
            spaces.insert(space);
        }
    }
    return testOf([spaces = std::move(spaces)](const AcDbEntity& entity) {
        return spaces.count(entity.blockId()) != 0;
    });
}

struct ComparisonName {
    std::wstring_view text;
    Comparison comparison;
};

constexpr ComparisonName kComparisons[] = {
    {L"=", Comparison::Equal},     {L"!=", Comparison::NotEqual},
    {L"/=", Comparison::NotEqual}, {L"<>", Comparison::NotEqual},
    {L"<", Comparison::Less},      {L"<=", Comparison::LessEqual},
    {L">", Comparison::Greater},   {L">=", Comparison::GreaterEqual},
    {L"&", Comparison::AnyBit},    {L"&=", Comparison::AllBits},
    {L"*", Comparison::Any}};

bool holds(Comparison comparison, int number, int wanted) {
    switch (comparison) {
    case Comparison::Equal:
        return number == wanted;
    case Comparison::NotEqual:
        return number != wanted;
    case Comparison::Less:
        return number < wanted;
    case Comparison::LessEqual:
        return number <= wanted;
    case Comparison::Greater:
        return number > wanted;
    case Comparison::GreaterEqual:
        return number >= wanted;
    case Comparison::AnyBit:
        return (number & wanted) != 0;
    case Comparison::AllBits:
        return (number & wanted) == wanted;
    case Comparison::Any:
        break;
    }
    return true;
}

} // namespace

std::shared_ptr<const EntityTest> textTest(const resbuf& item, const AcDbDatabase& database) {
    const wchar_t* text = item.resval.rstring == nullptr ? L"" : item.resval.rstring;
    const WildCard pattern(text);
    switch (item.restype) {
    case AcDb::kDxfStart:
        return testOf(
            [pattern](const AcDbEntity& entity) { return pattern.matches(entity.dxfTypeName()); });
    case AcDb::kDxfBlockName:
        return recordTest(database.blockTableId(), pattern, blockOf);
    case AcDb::kDxfHandle:
        return testOf([handle = AcDbHandle(text)](const AcDbEntity& entity) {
            return !handle.isNull() && entity.objectId().handle() == handle;
        });
    case AcDb::kDxfLinetypeName:
        return recordTest(database.linetypeTableId(), pattern,
                          [](const AcDbEntity& entity) { return entity.linetypeId(); });
    case AcDb::kDxfTextStyleName:
        return recordTest(database.textStyleTableId(), pattern, styleOf);
    case AcDb::kDxfLayerName:
        return recordTest(database.layerTableId(), pattern,
                          [](const AcDbEntity& entity) { return entity.layerId(); });
    case 410:
        return layoutTest(pattern, database);
    default:
        return nullptr;
    }
}

bool findComparison(std::wstring_view text, Comparison& comparison) {
    const auto* found = std::find_if(std::begin(kComparisons), std::end(kComparisons),
                                     [&](const ComparisonName& it) { return it.text == text; });
    if (found == std::end(kComparisons)) {
        return false;
    }
    comparison = found->comparison;
    return true;
}

std::shared_ptr<const EntityTest> numberTest(const resbuf& item, Comparison comparison,
                                             const AcDbDatabase& database) {
    const int wanted = item.resval.rint;
    switch (item.restype) {
    case AcDb::kDxfColor:
        return testOf([=](const AcDbEntity& entity) {
            return holds(comparison, entity.colorIndex(), wanted);
        });
    case 60:
        return testOf([=](const AcDbEntity& entity) {
            return holds(comparison, entity.visibility(), wanted);
        });
    case 67:
        return testOf([=, model = database.modelSpaceId()](const AcDbEntity& entity) {
            return holds(comparison, entity.blockId() == model ? 0 : 1, wanted);
        });
    default:
        return nullptr;
    }
}

namespace {

/// Whether each set of applications has what is wanted, worked out beforehand.
class ApplicationsTest : public EntityTest {
public:
    explicit ApplicationsTest(std::vector<bool> passing) : passing_(std::move(passing)) {}
    bool passes(const AcDbEntity& entity) const override {
        return passing_[entity.applicationSet()];
    }
    bool asksForApplicationsAlone() const override { return true; }

private:
    std::vector<bool> passing_;
};

} // namespace

std::shared_ptr<const EntityTest> xdataTest(const std::vector<const wchar_t*>& patterns,
                                            const AcDbDatabase& database) {
    const host_db::XdataApplications& applications = database.applications();
    std::vector<bool> passing(applications.setCount(), true);
    for (const wchar_t* text : patterns) {
        const WildCard pattern(text);
        std::vector<bool> named;
        for (std::uint32_t i = 0; i < applications.count(); ++i) {
            named.push_back(pattern.matches(applications.name(i).view()));
        }
        for (std::uint32_t set = 0; set < passing.size(); ++set) {
            const std::vector<std::uint32_t>& members = applications.members(set);
            passing[set] = passing[set] && std::any_of(members.begin(), members.end(),
                                                       [&](std::uint32_t i) { return named[i]; });
        }
    }
    return std::make_shared<ApplicationsTest>(std::move(passing));
}

} // namespace host_ed
