#include "SearchModule.h"

#include "EmbeddedHost.h"
#include "Failure.h"
#include "OneLine.h"

namespace pipenet {

SearchModule::SearchModule() {
    std::string error;
    if (!host::loadModule(PIPENET_MODULE, error)) {
        throw Failure(messages::kNoModule, error);
    }
}

SearchModule::~SearchModule() {
    std::string error;
    if (!host::unloadModule(PIPENET_MODULE, error)) {
        complain(textOf(messages::kNoModule, error));
    }
}

} // namespace pipenet
