#include "platform/interface/InterfaceFinding.h"

std::string InterfaceFinding::describe() const {
    std::string place = path;
    if (line > 0) {
        place.append(":").append(std::to_string(line)).append(":").append(std::to_string(column));
    }
    place.append(severity == Severity::error ? ": error: " : ": warning: ");
    return place.append(message);
}
