#include "database/NameKey.h"

#include "platform/WideCharacters.h"

namespace host_db {

std::wstring nameKey(const wchar_t* name) {
    std::wstring key;
    for (; name != nullptr && *name != L'\0'; ++name) {
        key.push_back(host_text::lowerCase(*name));
    }
    return key;
}

} // namespace host_db
