#pragma once

#include "platform/CString.h"

// The user file: defaults that a program keeps for its user, `SysCon\User.Kdp` under the system
// path, a settings file like the others. It is open from OpenUserFile to CloseUserFile, one at a
// time in a process, on the host's main thread. Each call is told to the host's listeners: `user
// open`, `user get KEY`, `user set KEY VALUE`, `user close`.

/// Reads the file; one that is not there yet is as good as an empty one. While a file is open it
/// stays open and keeps what was set. Gives 1, or 0 when the file is there and cannot be read: then
/// nothing is open, and the file stays as it is. Cost: one pass over the file.
int OpenUserFile();

/// Reads an integer, the decimal prefix of the text. Gives 1 and sets `value`, or gives 0 with
/// `value` as it was when there is no such key or no file is open.
int GetDefaultValue(const CString& key, int& value);

/// Sets an integer in memory, the key made when it is new. Gives 1, or 0 when no file is open.
int SetDefaultValue(const CString& key, int value);

/// Writes what was set, all in one step, and closes the file; a file in which nothing was set
/// is not written, one that was not there is made, its folder too. Gives 1, or 0 when no file was
/// open or it could not be written.
int CloseUserFile();
