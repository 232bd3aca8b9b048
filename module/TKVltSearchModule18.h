#pragma once

// The exported boundary of TKVltSearchModule18: every function and class that sibling modules link
// to. Names, signatures and the order of fields are fixed, spelling included.

#include "frame/FlowKind.h"
#include "frame/GetSearchInformation.h"
#include "frame/GravitySearchObject.h"
#include "frame/SearchObject.h"
#include "gravity/GetGravityNetwork.h"
#include "pressure/GetPressureNetwork.h"
#include "pressure/PressureSearchObject.h"
#include "pressure/PressureSeg.h"
#include "records/Block.h"
#include "records/Entity.h"
#include "records/GravitySeg.h"
#include "records/Pipe.h"
#include "records/Text.h"
#include "records/Well.h"
#include "services/DeleteSeg.h"
#include "services/FindGravityPath.h"
#include "services/FindLineEntity.h"
#include "services/GetSegsForCollideTest.h"
#include "services/GetSingleSeg.h"
#include "services/LowerHeightForCollideTest.h"
#include "services/Seg.h"
#include "utilities/PelIsIdArrSame.h"
