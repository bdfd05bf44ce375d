#pragma once

#include "platform/foundation/Finding.h"
#include "platform/interface/InterfaceDocument.h"

/// What making the objects of a document does not find: names that are no element or attribute, or have no effect here,
/// ids that stand twice, outlets that a class needs and nobody connects, cells whose reuse identifier their table would
/// refuse, images and colours that the current catalogue lacks, and colours of texts that do not follow the dark
/// appearance.
[[nodiscard]] Findings crossDocument(const InterfaceDocument& document);
