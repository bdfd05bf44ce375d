#pragma once

#include "platform/graphics/Bitmap.h"

class ConversationHost;

/// The whole screen of the device, or the extension's frame alone.
enum class PictureExtent { screen, extension };

/// What the player sees at this moment, in the appearance of the extension's window; opaque. `scale` in pixels a
/// point.
[[nodiscard]] Bitmap takePicture(ConversationHost& host, PictureExtent extent, int scale);
/// The same at the device's own scale.
[[nodiscard]] Bitmap takePicture(ConversationHost& host, PictureExtent extent);
