#pragma once

/// Makes the toolkit's classes known to interface files by name. Called once by the host before the first file is
/// read; calling it again is harmless.
void registerUIKitClasses();
