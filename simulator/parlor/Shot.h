#pragma once

#include "simulator/parlor/PreparedBundle.h"

class ConversationHost;

/// What one picture of the screen is to show: what `parlor shot` can be asked for, and what a gallery is made of.
struct Shot : BundleOptions {
    bool dark = false;
    std::string style = "expanded";
    bool openDropdown = false;
    std::string scroll = "0"; // of the list of modes: points, "middle" or "end"
    bool tapFirst = false;    // the first mode in view: the phone then tells of its link
    bool bare = false;

    /// The command that takes this picture into the file, as typed into a shell.
    [[nodiscard]] std::string commandLine(const std::string& file) const;
};

/// Plays a conversation until all is as the shot wants it, lets `look` see that, and gives what failed on the way.
[[nodiscard]] Findings playShot(const Shot& shot, const PreparedBundle& bundle,
                                const std::function<void(ConversationHost&)>& look);
