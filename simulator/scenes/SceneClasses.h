#pragma once

/// Makes the classes of the developer scenes known by name.
void registerSceneClasses();
