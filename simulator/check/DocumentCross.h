#pragma once

#include "platform/foundation/Finding.h"
#include "platform/interface/InterfaceDocument.h"

#include <filesystem>
#include <string>
#include <string_view>

class NSBundle;

/// What making the objects of a document does not find: outlets that a class needs and nobody connects, names that are
/// no element or attribute, ids that stand twice, cells whose reuse identifier their table would refuse.
[[nodiscard]] Findings crossDocument(const InterfaceDocument& document);
/// Text that XML readers on the phone refuse and the one here accepts: a bare &.
[[nodiscard]] Findings checkMarkup(std::string_view text, const std::string& path);
/// Nibs, scenes, images and colours that the registered classes ask for by name and the bundle lacks, and colours of
/// texts that do not follow the dark appearance.
[[nodiscard]] Findings checkAskedResources(const NSBundle& bundle, const std::filesystem::path& mainStoryboard);
/// Colours that texts of the document are painted in, and that do not follow the dark appearance.
[[nodiscard]] Findings checkTextColors(const InterfaceDocument& document);
