#include "application/InitAcUiDLL.h"

#include "platform/HostEvents.h"

void InitAcUiDLL() {
    host::announce(L"ui library ready");
}
