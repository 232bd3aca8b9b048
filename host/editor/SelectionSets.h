#pragma once

#include "database/ResultBuffer.h"
#include "editor/EditorCodes.h"
#include "platform/PlatformTypes.h"

/// Selects entities into a new set. Mode "X" (or "_X", in any case) takes every entity of the
/// current drawing that passes `filter`, in drawing order: model space, then the layouts in their
/// file order; not the insides of block definitions; erased ones never. nullptr passes everything.
///
/// The filter is a chain of conditions, all of which must hold, for which see
/// host_ed::EntityFilter. RTNORM with a set that the caller frees (acedSSFree). RTERROR, with `set`
/// zeroed: nothing was found, the filter is malformed, no drawing is open, 128 sets are in use,
/// another mode. `point1` and `point2` belong to other modes and must be nullptr for "X".
int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter,
              ads_name set);

/// Number of entities in a set. RTERROR for a name that is no open set.
int acedSSLength(const ads_name set, Adesk::Int32* length);
int acedSSLength(const ads_name set, long* length);

/// Name of the entity at `index`, counted from 0. RTERROR, with `entity` untouched, outside.
int acedSSName(const ads_name set, long index, ads_name entity);

/// Releases a set and zeroes nothing: the name is unknown afterwards. RTERROR for no open set.
int acedSSFree(const ads_name set);

/// Adds an entity at the end of a set; one that is in it stays where it is. Without a set (nullptr
/// or a zeroed name) a new one is made, empty without an entity. `result` becomes the set's name.
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);

/// Takes an entity out of a set; the rest keeps its order. RTERROR when it is not in it.
int acedSSDel(const ads_name entity, const ads_name set);

/// RTNORM when the entity is in the set, else RTERROR.
int acedSSMemb(const ads_name entity, const ads_name set);

namespace host_ed {

/// Most sets that may be open at a time.
inline constexpr int kMaxSelectionSets = 128;

/// Number of sets not freed yet, for leak checks.
int openSelectionSets();

} // namespace host_ed
