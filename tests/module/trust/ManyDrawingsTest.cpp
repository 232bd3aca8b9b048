// A process that opens drawings without end keeps nothing of those that it has closed.

#include "module/support/AllocatedBytes.h"

#include "EmbeddedHost.h"

#include <gtest/gtest.h>

namespace module_tests {
namespace {

void openAndClose(int times) {
    for (int i = 0; i < times; ++i) {
        AcApDocument* document = host::newDocument();
        ASSERT_NE(document, nullptr);
        host::closeDocument(document);
    }
}

TEST(ManyDrawings, ClosedOnesLeaveNothingBehind) {
    openAndClose(200);
    const std::size_t before = allocatedBytes();
    openAndClose(4000);
    // A pointer for each would be 32,000 bytes.
    EXPECT_LT(static_cast<long long>(allocatedBytes()) - static_cast<long long>(before), 8000);
}

TEST(ManyDrawings, TheIdOfAClosedOneStaysClosedWhateverIsOpenedLater) {
    AcApDocument* first = host::newDocument();
    AcApDocument* second = host::newDocument();
    const AcDbObjectId ofFirst = first->database()->layerTableId();
    const AcDbObjectId ofSecond = second->database()->layerTableId();
    host::closeDocument(first);
    openAndClose(100);
    AcApDocument* third = host::newDocument();
    EXPECT_EQ(ofFirst.database(), nullptr);
    EXPECT_EQ(ofSecond.database(), second->database());
    EXPECT_EQ(third->database()->layerTableId().database(), third->database());
    host::closeDocument(second);
    EXPECT_EQ(ofSecond.database(), nullptr);
    EXPECT_EQ(third->database()->layerTableId().database(), third->database());
    host::closeDocument(third);
}

} // namespace
} // namespace module_tests
