// What the command sends to the module through the host: this program is linked with the module and
// with the command's own way to load it.

#include "SearchModule.h"

#include "EmbeddedHost.h"
#include "TKVltSearchModule18.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Lines = std::vector<std::wstring>;

const std::wstring kName = host_text::fromUtf8(PIPENET_MODULE);

TEST(SearchModule, TheLoadAndTheUnloadMessageReachTheLinkedModule) {
    // A name of the module's, so that no linker leaves the library out.
    ASSERT_STREQ(SearchObject::GetThisClass()->m_lpszClassName, "SearchObject");
    host::HostRecorder recorder;
    auto module = std::make_unique<pipenet::SearchModule>();
    EXPECT_EQ(recorder.lines(), (Lines{L"load " + kName, L"api version " + kName + L" 0x120000",
                                       L"unlock application " + kName, L"mdi aware " + kName,
                                       L"entry " + kName + L" 1 = 0"}));
    EXPECT_EQ(host::loadedModules(), std::vector<std::string>{PIPENET_MODULE});
    recorder.clear();
    module.reset();
    EXPECT_EQ(recorder.lines(),
              (Lines{L"entry " + kName + L" 2 = 0", L"unload " + kName, L"still mapped " + kName}));
    EXPECT_TRUE(host::loadedModules().empty());
}

TEST(SearchModule, AModuleThatTheHostRefusesEndsTheCommand) {
    const pipenet::SearchModule module;
    try {
        const pipenet::SearchModule second;
        FAIL() << "loaded twice";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), std::string(PIPENET_MODULE) + ": is loaded already");
    }
}

} // namespace
