#pragma once

#include <string>
#include <string_view>

namespace host_files {

/// Makes `bytes` the content of the file at a UTF-8 path in one step: whoever opens the file sees
/// the old content or the new one, whole, even when this process or the machine stops on the way.
///
/// The bytes go to a temporary file in the same folder, reach the disk, and take the old file's
/// place. Access rights of the old file are kept, a new file has those the process's mask leaves. A
/// symbolic link stays and the file it leads to is replaced. On failure returns false with the
/// reason in `cause`; the old file is untouched and no temporary one is left. A file that may not
/// be written, or is no regular file, is a failure.
bool replaceFile(const std::string& path, std::string_view bytes, std::string& cause);

} // namespace host_files
