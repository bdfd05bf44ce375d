#pragma once

/// Makes the category screen known to interface files by name. Called once before the first file is read.
void registerGameClasses();
