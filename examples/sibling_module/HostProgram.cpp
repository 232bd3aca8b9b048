// usage: sibling_host DRAWING SIBLING: plays the host for a sibling module.

#include "EmbeddedHost.h"
#include "Siblings.h"

#include <cstdio>

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: sibling_host DRAWING SIBLING\n", stderr);
        return 2;
    }
    siblings::setSystemPath(SETTINGS_DIR);
    std::string error;
    AcApDocument* document = host::openDocument(arguments[1], error);
    const bool done = document != nullptr && host::loadModule(arguments[2], error) &&
                      host::unloadModule(arguments[2], error);
    if (!done) {
        std::fprintf(stderr, "%s\n", error.c_str());
    }
    host::closeDocument(document);
    return done ? 0 : 1;
}
