#include "records/PipeTexts.h"

#include "records/ClosedAtEnd.h"
#include "records/XdataKeys.h"

namespace tkvlt {

PipeTexts ReadPipeTexts(const AcDbObjectId& id, PipeTexts texts) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForRead, AcDbCurve::desc(), false) != Acad::eOk) {
        return texts;
    }
    const ClosedAtEnd closing(object);
    auto* curve = static_cast<AcDbCurve*>(object);
    curve->getStartPoint(texts.startPoint);
    curve->getEndPoint(texts.endPoint);
    ReadXdata(object, xdata::kDiameter, texts.diameter);
    ReadXdata(object, xdata::kFlow, texts.flow);
    ReadXdata(object, xdata::kSlope, texts.slope);
    ReadXdata(object, xdata::kStartElevation, texts.startElevation);
    ReadXdata(object, xdata::kEndElevation, texts.endElevation);
    ReadXdata(object, xdata::kMaterial, texts.material);
    return texts;
}

} // namespace tkvlt
