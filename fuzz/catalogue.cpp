#include "platform/interface/CatalogSets.h"
#include "tests/support/TemporaryFolder.h"

#include <cstddef>
#include <cstdint>

/// Any bytes as the Contents.json of a colour set and of an image set.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const support::TemporaryFolder set;
    set.write("Contents.json", std::string(bytes, bytes + size));
    Findings findings;
    if (const auto color = readColorSet(set.path(), findings)) {
        static_cast<void>(color->resolved(UIUserInterfaceStyle::dark));
    }
    static_cast<void>(readImageSet(set.path(), findings));
    return 0;
}
