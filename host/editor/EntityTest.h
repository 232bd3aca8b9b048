#pragma once

#include "database/AcDbDatabase.h"
#include "database/ResultBuffer.h"

#include <memory>
#include <string_view>
#include <vector>

class AcDbEntity;

namespace host_ed {

/// One condition of a filter.
class EntityTest {
public:
    EntityTest() = default;
    EntityTest(const EntityTest&) = delete;
    EntityTest& operator=(const EntityTest&) = delete;
    virtual ~EntityTest();

    virtual bool passes(const AcDbEntity& entity) const = 0;
    /// Entities that carry data of the same applications pass alike, whatever else they are.
    virtual bool asksForApplicationsAlone() const { return false; }
};

/// The condition of a filter item of a text group; nullptr for a group that filters do not know.
std::shared_ptr<const EntityTest> textTest(const resbuf& item, const AcDbDatabase& database);

/// How a number is compared with the filter's.
enum class Comparison {
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    AnyBit,
    AllBits,
    Any
};

/// The comparison of an operator's text; false for another text.
bool findComparison(std::wstring_view text, Comparison& comparison);

/// The condition of a filter item of a number group; nullptr for a group that filters do not know.
std::shared_ptr<const EntityTest> numberTest(const resbuf& item, Comparison comparison,
                                             const AcDbDatabase& database);

/// The entity carries data of an application that matches each pattern.
std::shared_ptr<const EntityTest> xdataTest(const std::vector<const wchar_t*>& patterns,
                                            const AcDbDatabase& database);

} // namespace host_ed
