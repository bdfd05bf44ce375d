#include "content/ModeListDecoder.h"
#include "simulator/check/ContentCheck.h"
#include "simulator/conversation/BundleSetup.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    openExtensionBundle(TD_BUNDLE);
    return 0;
}

/// Any bytes as a content file: records or a failure, and findings. What the extension refuses must be told by the
/// checks as an error, and nothing else as one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(bytes, bytes + size);
    if (static_cast<bool>(decodeModeList(text)) == hasErrors(checkContentText(text, "fuzz.json"))) {
        __builtin_trap();
    }
    return 0;
}
