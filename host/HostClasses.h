#pragma once

/// Makes the controller known to interface files by name. Called once before the first file is read.
void registerHostClasses();
