#pragma once

#include "platform/graphics/Bitmap.h"

#include <optional>

class ConversationHost;

/// The whole screen of the device, or the extension's frame alone.
enum class PictureExtent { screen, extension };

/// What the player sees at this moment, in the appearance of the extension's window; opaque. `scale` in pixels a
/// point, that of the device when absent.
[[nodiscard]] Bitmap takePicture(ConversationHost& host, PictureExtent extent, std::optional<int> scale = std::nullopt);
