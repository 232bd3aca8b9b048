#include "utilities/PelMultiPL2DblPl.h"

#include "utilities/EnterEntity.h"

#include <memory>

namespace {

constexpr unsigned int kVerticesOfAPiece = 2;

/// A copy that keeps the vertices `first` and the next alone.
std::unique_ptr<AcDbPolyline> PieceOf(const AcDbPolyline* polyline, unsigned int first) {
    std::unique_ptr<AcDbPolyline> piece(AcDbPolyline::cast(polyline->clone()));
    for (unsigned int last = piece->numVerts() - 1; last >= first + kVerticesOfAPiece; --last) {
        piece->removeVertexAt(last);
    }
    for (unsigned int i = 0; i < first; ++i) {
        piece->removeVertexAt(0);
    }
    return piece;
}

} // namespace

int PelMultiPL2DblPl(AcDbObjectId polyline) {
    AcDbPolyline* whole = nullptr;
    if (acdbOpenObject(whole, polyline, AcDb::kForWrite) != Acad::eOk) {
        return 0;
    }
    const unsigned int count = whole->numVerts();
    if (count <= kVerticesOfAPiece) {
        whole->close();
        return 1;
    }
    for (unsigned int i = 0; i + 1 < count; ++i) {
        tkvlt::EnterEntity(PieceOf(whole, i));
    }
    whole->erase();
    whole->close();
    return 1;
}
