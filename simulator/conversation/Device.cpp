#include "simulator/conversation/Device.h"

#include "platform/foundation/Nearest.h"
#include "platform/graphics/PNG.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr CGFloat compactHeight = 300; // what the keyboard would take
constexpr CGFloat topBar = 56;         // the conversation's own bar above an expanded extension

UIEdgeInsets safeAreaOf(CGSize size) {
    const bool roundedCorners = size.height >= 812; // these phones have a home indicator instead of a button
    return roundedCorners ? UIEdgeInsets{59, 0, 34, 0} : UIEdgeInsets{20, 0, 0, 0};
}

Device makeDevice(const std::string& name, CGSize size, int scale) {
    return {name, size, scale, safeAreaOf(size)};
}

} // namespace

CGRect Device::compactFrame() const {
    const CGFloat height = std::min(compactHeight + safeArea.bottom, size.height);
    return CGRectMake(0, size.height - height, size.width, height);
}

CGRect Device::expandedFrame() const {
    const CGFloat top = std::min(safeArea.top + topBar, size.height);
    return CGRectMake(0, top, size.width, size.height - top);
}

Result<Device> deviceNamed(const std::string& name) {
    static const std::vector<Device> known{
        makeDevice("se", {320, 568}, 2), makeDevice("8", {375, 667}, 2),     makeDevice("8plus", {414, 736}, 3),
        makeDevice("15", {393, 852}, 3), makeDevice("15max", {430, 932}, 3),
    };
    std::vector<std::string> names;
    for (const Device& device : known) {
        if (device.name == name) {
            return device;
        }
        names.push_back(device.name);
    }
    int width = 0;
    int height = 0;
    int scale = 0;
    int length = 0;
    const int fields = std::sscanf(name.c_str(), "%4dx%4d@%1d%n", &width, &height, &scale, &length);
    const bool sensible = width >= 100 && height >= 100 && scale >= 1 && scale <= 3;
    if (fields == 3 && static_cast<std::size_t>(length) == name.size() && sensible) {
        if (const auto failure = pictureSizeRefusal(static_cast<std::uint32_t>(width * scale),
                                                    static_cast<std::uint32_t>(height * scale))) {
            return Failure{"the device '" + name + "' is too large: its screen would be " + failure->what};
        }
        return makeDevice(name, {static_cast<CGFloat>(width), static_cast<CGFloat>(height)}, scale);
    }
    return Failure{"unknown device '" + name + "'" + suggestion(name, names) +
                   " (se, 8, 8plus, 15, 15max, or a size such as 390x844@3, from 100 points and scale 1 to 3)"};
}

const std::vector<std::string>& textSizeNames() {
    static const std::vector<std::string> names{"xSmall",         "small",         "medium",   "large",
                                                "xLarge",         "xxLarge",       "xxxLarge", "accessibility1",
                                                "accessibility2", "accessibility3"};
    return names;
}

UIContentSizeCategory textSizeNamed(const std::string& name) {
    const std::vector<std::string>& names = textSizeNames();
    return static_cast<UIContentSizeCategory>(std::find(names.begin(), names.end(), name) - names.begin());
}
