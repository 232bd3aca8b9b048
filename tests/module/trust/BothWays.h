#pragma once

#include "module/pressure/PressureTest.h"
#include "TKVltSearchModule18.h"

#include <string>

namespace module_tests {

/// What a search gives with the plain scan. With the index it must be the same to the last bit.
int searchSewer(GravitySearchObject& network, AcDbObjectId start, AcDbObjectId end = {},
                AcGePoint3d pick = {});
int searchMain(PressureSegs& segs, AcDbObjectId picked, AcGePoint3d pick = {});

/// Who hangs on whom, with which pipes, flags, valves and meters, without places and lengths.
std::string graphOf(PressureSegs& segs);

/// The text of an entity under a key.
std::wstring textOf(AcDbObjectId id, const wchar_t* key);

/// A sewer of two wells twenty units apart and the pipe from the one centre to the other.
struct ShortSewer {
    AcDbObjectId first;
    AcDbObjectId second;
    AcDbObjectId pipe;
};
ShortSewer addShortSewer(DrawingBuilder& drawing, const WellTexts& first = {},
                         const WellTexts& second = {}, const PipeTexts& pipe = {});

} // namespace module_tests
