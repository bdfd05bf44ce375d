#include "platform/runtime/Outlet.h"

#include "platform/foundation/FatalError.h"

void stopForUnconnectedOutlet(const char* name) {
    fatalError("outlet " + std::string(name) + " is not connected");
}
