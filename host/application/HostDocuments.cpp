#include "application/HostDocuments.h"

#include "application/AcApDocManager.h"
#include "application/AcRxDictionary.h"
#include "application/AcRxDynamicLinker.h"
#include "dxf/LoadDxf.h"
#include "dxf/SaveDxf.h"

namespace host {

namespace {

/// The module that forbids one more document; empty when none does.
std::string moduleInTheWay() {
    if (acDocManager()->documentCount() == 0) {
        return {};
    }
    return AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))->firstNotMDIAware();
}

} // namespace

AcApDocument* newDocument() {
    if (!moduleInTheWay().empty()) {
        return nullptr;
    }
    return acDocManager()->adopt(
        std::make_unique<AcApDocument>(std::make_unique<AcDbDatabase>(), std::string()));
}

AcApDocument* openDocument(const std::string& path, std::string& error) {
    if (const std::string module = moduleInTheWay(); !module.empty()) {
        error = path + ": cannot be opened: the module " + module + " works with one document only";
        return nullptr;
    }
    std::unique_ptr<AcDbDatabase> database = host_dxf::loadDrawing(path, error);
    if (database == nullptr) {
        return nullptr;
    }
    AcApDocument* opened =
        acDocManager()->adopt(std::make_unique<AcApDocument>(std::move(database), path));
    if (opened == nullptr) {
        error = path + ": cannot be opened: it was closed while its opening was being told";
    }
    return opened;
}

bool saveDocument(AcApDocument* document, const std::string& path, std::string& error) {
    if (!acDocManager()->isOpen(document)) {
        error = path + ": cannot save: the document is not open";
        return false;
    }
    if (!host_dxf::saveDrawing(*document->database(), path, error)) {
        return false;
    }
    document->setPath(path);
    return true;
}

void closeDocument(AcApDocument* document) {
    acDocManager()->close(document);
}

} // namespace host
