#pragma once

#include <fmt/format.h>
#include <string>
#include <string_view>

namespace pipenet {

/// One thing that the program can say beside its answer. Numbers stay with their texts: 1xx a usage
/// error, 2xx an input that cannot be read, 3xx an output that cannot be written, 4xx a refusal of
/// the search with its likely cause, 9xx what should not happen.
struct Message {
    int number;
    std::string_view text; ///< a format text; its places are filled in order
};

/// The text of a message with its places filled, one line.
template<class... Arguments>
std::string textOf(const Message& message, const Arguments&... arguments) {
    return fmt::format(fmt::runtime(message.text), arguments...);
}

namespace messages {

inline constexpr Message kUsage{101, "{}; see pipenet --help"};
inline constexpr Message kNoCommand{102, "a command is missing; see pipenet --help"};
inline constexpr Message kTwice{103, "{} is given more than once; see pipenet --help"};
inline constexpr Message kNoStart{
    104, "{} needs an entity to start from: --start HANDLE or --pick X,Y; see pipenet --help"};
inline constexpr Message kStartAndPick{105,
                                       "--start and --pick exclude each other; see pipenet --help"};
inline constexpr Message kBadHandle{
    106, "{}: '{}' is no handle (1 to 16 hexadecimal digits, not all of them 0)"};
inline constexpr Message kBadPick{107, "--pick: '{}' is not of the form X,Y"};
inline constexpr Message kBadPoint{108, "--point: '{}' is not of the form X,Y or X,Y,Z"};
inline constexpr Message kBadNumber{109, "{}: '{}' is no number {}"};

inline constexpr Message kOutputTwice{
    110, "--output and --in-place exclude each other; see pipenet --help"};
inline constexpr Message kNoOutput{
    111, "{} changes drawings and needs --output FILE, or --in-place to write into the drawing "
         "itself; see pipenet --help"};

inline constexpr Message kFormatOfCheck{
    112, "--format {}: check alone gives this form; see pipenet --help"};
inline constexpr Message kTimingInPage{
    113, "--timing and --format html exclude each other; see pipenet --help"};

inline constexpr Message kDrawing{201, "{}"};
inline constexpr Message kNoEntity{202, "{}: no entity has the handle {}"};
inline constexpr Message kNoLine{208, "{}: the entity with the handle {} is no line"};
inline constexpr Message kNoCurve{
    209, "{}: the entity with the handle {} is no line, arc, circle or polyline"};
inline constexpr Message kNoBlock{210, "{}: the entity with the handle {} is no block reference"};
inline constexpr Message kErasedEntity{203, "{}: the entity with the handle {} is erased"};
inline constexpr Message kUnreadable{204, "{}: {}"};
inline constexpr Message kNoSettings{
    205, "{}: {}; give the folder of the settings with --settings DIR or TKVLT_SYSTEM_PATH"};
inline constexpr Message kNotUtf8{206, "{}:{}: the line is not UTF-8 text"};
inline constexpr Message kBadSettingsLine{
    207, "{}:{}: the line is neither blank, nor a comment, nor 'key = value'"};

inline constexpr Message kUnwritable{301, "{}: cannot be written: {}"};
inline constexpr Message kOutputIsInput{
    304, "{}: not written: it is the drawing itself; give another file, or --in-place"};
inline constexpr Message kNoPlainFile{305, "{}: not written: it is there and is no plain file"};
inline constexpr Message kPictureIsDrawing{
    307, "{}: not written: the picture would overwrite a drawing; give --svg another file"};
inline constexpr Message kUnsaved{306, "{}"};
inline constexpr Message kOutput{302, "standard output: cannot be written"};

inline constexpr Message kNothingToPick{
    401, "{}: there is no pipe, well or tank to pick; check that the network entities carry their "
         "texts under 管道系统, 管井系统 or 池体"};
inline constexpr Message kNoSystemName{
    402,
    "no network from {}: it carries no system name; check that it is a pipe (管道系统), a well "
    "(管井系统) or a tank (池体系统)"};
inline constexpr Message kUnknownSystem{
    403, "no network from {}: the settings do not say whether its system '{}' flows by gravity or "
         "under pressure; check its entry and GroupType in {}"};
inline constexpr Message kPressure{
    404,
    "no network from {}: its system '{}' is a pressure system, and such a network is read from "
    "one of its pipes; check that --start is a pipe longer than 1 drawing unit"};
inline constexpr Message kClosed{
    416,
    "no network from {}: the network of '{}' closes on itself: two of its {} segments, at pipes "
    "{} and {}, end at one place near {:.6g}, {:.6g}; check the pipes there, or open the loop"};
inline constexpr Message kLostInRuns{
    423, "no network from {}: the search loses its way where pipes of the system '{}' lie side by "
         "side or go on in a line behind a branch; check for gaps between pipes near a junction"};
inline constexpr Message kStoppedByFinding{417, "no network from {}: {} [{}, while {}]"};
inline constexpr Message kPathStoppedByFinding{419, "no path from {} to {}: {} [{}, while {}]"};
inline constexpr Message kStopped{418, "{} [while {}]"};
inline constexpr Message kSameEnds{
    405, "no path in a network from {}: start and end are the same entity; check --end"};
inline constexpr Message kEndWithoutSystem{
    406, "no path from {} to {}: the end carries no system name; check that it is a pipe, well or "
         "tank"};
inline constexpr Message kEndOfOtherSystem{
    407,
    "no path from {} to {}: the start belongs to system '{}' and the end to '{}'; check --end"};
inline constexpr Message kNotCollected{
    408,
    "no network from {}: it is not among the wells and tanks that the search collects; check that "
    "it is a block and that a tank carries 池体 beside 池体系统"};
inline constexpr Message kShortPipe{
    409,
    "no network from {}: the pipe measures {} in drawing units, and only pipes longer than 1 take "
    "part; check its ends"};
inline constexpr Message kNoTarget{
    410,
    "no network from {}: neither end of the pipe leads to a well or tank; check the gaps between "
    "its pieces (at most {:.6g} drawing units) and that a well or tank of the system '{}' stands "
    "at "
    "an end"};
inline constexpr Message kAlone{
    411,
    "no network from {}: no pipe of the system '{}' leads from it to a further well or tank; check "
    "that pipes end at it, that gaps are at most {:.6g} drawing units, and that no pipe loops "
    "back"};
inline constexpr Message kCycle{
    412,
    "no network from {}: the pipes of the system '{}' close a loop or come back to a well already "
    "reached; check the pipes near the last node reached, {} (found so far: {} wells and tanks)"};
inline constexpr Message kEndIsRoot{
    420, "no path from {} to {}: the end is the root itself; check --end"};
inline constexpr Message kEndInRoot{
    413, "no path from {} to {}: the end overlaps the root and is one node with it; check --end"};
inline constexpr Message kEndNotReached{
    414,
    "no path from {} to {}: the network ({} wells and tanks) does not reach the end; check for a "
    "gap or a missing pipe between them"};
inline constexpr Message kNoReason{415, "no network from {}; check the pipes and wells around it"};
inline constexpr Message kNoPipe{
    421, "no segment at {}: it carries no system name under 管道系统; check that it is a pipe"};
inline constexpr Message kSegmentUnknownSystem{
    422,
    "no segment at {}: the settings do not say whether its system '{}' flows by gravity or under "
    "pressure; check its entry and GroupType in {}"};
inline constexpr Message kSegmentShort{424, "no segment at {}: the pipe measures {} in drawing "
                                            "units, and only pipes longer than 1 take part; "
                                            "check its ends"};
inline constexpr Message kSegmentNoTarget{
    425,
    "no segment at {}: neither end of the pipe leads to a well or tank; check the gaps between its "
    "pieces (at most {:.6g} drawing units) and that a well or tank of the system '{}' stands at an "
    "end"};

inline constexpr Message kPathOfPressure{
    431, "no path from {} to {}: the start belongs to the pressure system '{}', and paths lead "
         "through gravity networks; check --start"};
inline constexpr Message kTargetIsRoot{
    432, "no path from {} to {}: the target is the root itself; check --target"};
inline constexpr Message kTargetWithoutSystem{
    433, "no path from {} to {}: the target carries no system name as a well or a pipe; check "
         "--target"};
inline constexpr Message kTargetOfOtherSystem{
    434, "no path from {} to {}: the root belongs to well system '{}' and the target to '{}'; "
         "check --target"};
inline constexpr Message kTargetInRoot{
    436, "no path from {} to {}: the target overlaps the root and is one node with it; check "
         "--target"};
inline constexpr Message kRootWithoutWells{
    437, "no path from {} to {}: the root {} is no well, and ways go by the systems of wells; "
         "check --start"};
inline constexpr Message kTargetNotReached{
    435, "no path from {} to {}: the network ({} wells and tanks) does not hold the target; check "
         "for a gap or a missing pipe between them"};
inline constexpr Message kNothingFollows{
    441, "lowered {} alone, not what follows it, and written to {}: no network was found from its "
         "end; check that pipes lead on from it and that none loops back"};
inline constexpr Message kOpenAtStart{
    443, "nothing lowered at {}: the side on which it is drawn from leads to no well or tank, and "
         "the search for what follows begins there; check the gaps on that side"};
inline constexpr Message kNothingLowered{444, "nothing lowered at {}: {}"};
inline constexpr Message kNotGravity{
    442, "nothing to lower at {}: its system '{}' is a pressure system, and heights follow the "
         "water in gravity systems only; check --pipe"};

inline constexpr Message kNoSuchSystem{
    451, "nothing checked: the drawing has no system '{}'; it has {}"};
inline constexpr Message kErrorsFound{452, "{}: {}; the report tells what to do about each"};

inline constexpr Message kNoModule{902, "{}"};
inline constexpr Message kInternal{901, "{}: the command ended unexpectedly: {}"};

} // namespace messages
} // namespace pipenet
