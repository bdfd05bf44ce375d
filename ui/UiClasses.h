#pragma once

/// Makes the interface kit's views known to interface files by name. Called once before the first file is read.
void registerUiClasses();
