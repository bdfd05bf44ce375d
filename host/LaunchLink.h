#pragma once

#include "content/CurrentOption.h"
#include "content/ModeSection.h"

#include "platform/foundation/NSURL.h"

#include <optional>

class UIViewController;

/// The https link that carries the player's choice out of the extension, addressed to the maker's web host:
/// /Category?mainCategory=…&sectionCategory=…&sectionItem=…&icon=…, always with these four items in this order. An
/// item without an icon gives the bare name "icon". None when the texts cannot stand in a link.
[[nodiscard]] std::optional<NSURL> launchLink(CurrentOption option, const ModeSection& section, const ModeItem& item);

/// Hands the launch link to the extension context that `screen` reaches. Without a link or a context nothing happens;
/// the outcome is not observed. Every call opens a link anew. Main thread.
void openCategoryLink(const UIViewController& screen, CurrentOption option, const ModeSection& section,
                      const ModeItem& item);
