#include "application/HostDocuments.h"

#include "application/AcApDocManager.h"
#include "dxf/LoadDxf.h"

namespace host {

AcApDocument* newDocument() {
    return acDocManager()->adopt(
        std::make_unique<AcApDocument>(std::make_unique<AcDbDatabase>(), std::string()));
}

AcApDocument* openDocument(const std::string& path, std::string& error) {
    std::unique_ptr<AcDbDatabase> database = host_dxf::loadDrawing(path, error);
    if (database == nullptr) {
        return nullptr;
    }
    return acDocManager()->adopt(std::make_unique<AcApDocument>(std::move(database), path));
}

bool saveDocument(AcApDocument* /*document*/, const std::string& /*path*/, std::string& error) {
    error = "saving drawings is not available in this build";
    return false;
}

void closeDocument(AcApDocument* document) {
    acDocManager()->close(document);
}

} // namespace host
