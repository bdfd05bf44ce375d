#include "platform/interface/InterfaceFinding.h"

std::string InterfaceFinding::describe() const {
    std::string place = path;
    if (line > 0) {
        place += ":" + std::to_string(line) + ":" + std::to_string(column);
    }
    return place + (severity == Severity::error ? ": error: " : ": warning: ") + message;
}
