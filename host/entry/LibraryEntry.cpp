#include "entry/LibraryEntry.h"

#include "platform/ExtensionModule.h"

extern "C" {
/// The name by which the linker finds this file in its archive.
extern const char tkvltLibraryEntry;
const char tkvltLibraryEntry = 0;
}

namespace {

/// Priority 101 is the first that the compiler leaves to programs: before any static constructor.
[[gnu::constructor(101)]] void rawEntry() {
    AfxExtensionRawEntry();
}

/// Made last of the library's static objects, for the archive stands last in its link line; so it
/// goes first, at the unmapping of the library as at the end of the process.
class ProcessAttachment {
public:
    ProcessAttachment() { DllMain(host::instanceOf(this), DLL_PROCESS_ATTACH, nullptr); }
    ProcessAttachment(const ProcessAttachment&) = delete;
    ProcessAttachment& operator=(const ProcessAttachment&) = delete;
    ~ProcessAttachment() { DllMain(host::instanceOf(this), DLL_PROCESS_DETACH, nullptr); }
};

const ProcessAttachment attachment;

} // namespace
