#pragma once

/// Makes UINib, UIStoryboard and the asset catalogue read the files of the main bundle. Called once by the host, after
/// NSBundle::setMainBundle and before the extension starts; calling it again starts afresh with the current bundle.
void installInterfaceReaders();
