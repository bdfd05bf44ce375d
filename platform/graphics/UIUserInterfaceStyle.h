#pragma once

/// The appearance in which colours are resolved.
enum class UIUserInterfaceStyle { light = 1, dark = 2 };
