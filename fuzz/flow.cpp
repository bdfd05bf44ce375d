#include "simulator/flows/FlowReader.h"

#include <cstddef>
#include <cstdint>

/// Any bytes as a flow: steps to play, or findings.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Findings findings;
    if (!readFlow(std::string(bytes, bytes + size), "fuzz.yaml", findings) && findings.empty()) {
        __builtin_trap(); // refused in silence
    }
    return 0;
}
