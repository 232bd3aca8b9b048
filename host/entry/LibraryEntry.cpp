#include "entry/LibraryEntry.h"

#include "platform/ExtensionModule.h"

extern "C" {
/// The name by which the linker finds this file in its archive.
extern const char tkvltLibraryEntry;
const char tkvltLibraryEntry = 0;
}

namespace {

/// How many lists were aside before this library set more aside.
std::size_t listsBefore = 0;

/// Priority 101 is the first that the compiler leaves to programs: before any static constructor.
[[gnu::constructor(101)]] void rawEntry() {
    listsBefore = host::listsAside();
    AfxExtensionRawEntry();
}

/// Stands for the system's calls of the entry function. Static objects are made in the order of the
/// link line and go in the reverse one, at the unmapping of the library as at the end of the
/// process. The archive that holds this one stands behind the library's own object files and behind
/// whatever is named before it; objects of archives that are named after it are made later and go
/// sooner than this one.
class ProcessAttachment {
public:
    ProcessAttachment() {
        DllMain(host::instanceOf(this), DLL_PROCESS_ATTACH, nullptr);
        // A library that has not initialised its record must not keep the lists of others.
        host::putListsBack(listsBefore);
    }
    ProcessAttachment(const ProcessAttachment&) = delete;
    ProcessAttachment& operator=(const ProcessAttachment&) = delete;
    ~ProcessAttachment() { DllMain(host::instanceOf(this), DLL_PROCESS_DETACH, nullptr); }
};

const ProcessAttachment attachment;

} // namespace
