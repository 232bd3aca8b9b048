#pragma once

#include "database/ResultBuffer.h"
#include "editor/EditorCodes.h"

/// Runs commands on the current drawing, as if their input were typed: pairs of a type code and a
/// value, closed by 0 or RTNONE.
///
/// Codes: RTSTR a text, where "" stands for Enter; RTSHORT and RTLONG an int, RTREAL and RTANG a
/// double; RTPOINT and RT3DPOINT a point, in UCS; RTENAME an entity, RTPICKS a selection set; an
/// entity and a point between RTLB and RTLE, an entity picked at that point.
///
/// Commands, in any case, with or without "_" and "." before the name:
/// - "trim": cutting edges (entities, sets, picks), closed by ""; none stands for every entity of
///   the current space. Then picks, closed by "": of the picked line, arc, circle or lightweight
///   polyline the part around the picked place goes, up to the nearest cuts on either side, or to
///   the end. Cuts are where object and edge cross in plan (the XY plane of the UCS). A pick that
///   no edge crosses, of another kind of entity or on a locked layer is passed over; a circle or a
///   closed polyline takes two cuts.
/// - "break": an entity (name, pick, or a set of one), first and second point; "@" as the second is
///   the first again. Each point counts at the nearest place of the object; the part between them
///   goes, with one place twice the object is parted there. A pick with a point has given the first
///   point, unless "First" follows. Of a circle and of a closed polyline the part from the first to
///   the second place goes, counter-clockwise and along the drawn direction.
/// - "redraw".
/// - "Undo" with "Group", "End", or the number of steps to take back (Enter: 1).
///
/// What is left of a cut object keeps its identity as the piece nearest its start; a second piece
/// is a new entity at the end of the drawing, with the properties and extended data of the first. A
/// circle and a closed polyline become one open piece.
///
/// Each command is one step for "Undo", and so is what programs change between two commands;
/// everything from "Group" to "End" is one. A count takes back the last steps, as many as there
/// are, within a group not beyond its beginning. A "Group" within a group ends that.
///
/// RTNORM when everything was carried out, else RTERROR:
/// - an unknown command, no drawing;
/// - a malformed command: a missing argument, one of a wrong kind, input behind its end that is
///   neither text nor Enter; a list with a code that commands do not know, or the name of no entity
///   or set, is not begun at all;
/// - the drawing refused: an object is open, the document is locked by another, what is to be
///   broken is on a locked layer;
/// - a break that would leave nothing, that would part a circle or an open curve's end at one
///   place, or of another kind of entity.
/// Such a command has changed nothing, but steps that an "Undo" took back stay taken back. Commands
/// before it in the list stay done, those behind it are not begun.
///
/// A command that was begun by typing (see acedGetAcadDockCmdLine) takes the input first. Without
/// one "" does nothing. No input at all, acedCommand(0), cancels the one that was begun.
int acedCommand(int type, ...);

/// The same from a chain, which stays the caller's; nullptr is no input at all.
int acedCmd(const resbuf* chain);
