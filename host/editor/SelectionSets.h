#pragma once

#include "database/ResultBuffer.h"
#include "editor/EditorCodes.h"
#include "platform/PlatformTypes.h"

/// Selects entities into a new set, in drawing order. Modes, in any case, with or without "_":
/// - "X": every entity of the current drawing: model space, then the layouts in their file order;
///   not the insides of block definitions; erased ones never.
/// - "F": the entities of the current space whose curve crosses a fence in plan, the XY plane of
///   the UCS. `point1` is a chain of two or more RTPOINT or RT3DPOINT items, in UCS. A block
///   reference crosses by its definition's curves, a text by the sides of its box; invisible
///   entities and those on layers that are off or frozen are not met.
/// - "P": those of the set that was selected last which are not erased.
/// - "L": the last entity of the current space, unless it is invisible.
/// Of these, those that pass `filter`, a chain of conditions all of which must hold, for which see
/// host_ed::EntityFilter; nullptr passes everything.
///
/// RTNORM with a set that the caller frees (acedSSFree). RTERROR, with `set` zeroed: nothing was
/// found, the filter or the fence is malformed, no drawing is open, 128 sets are in use, another
/// mode. `point1` belongs to "F" alone, `point2` to none of these; elsewhere they must be nullptr.
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
