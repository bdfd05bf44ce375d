#pragma once

#include "platform/uikit/view/UIView.h"

/// `stable` leaves out what changes when an interface file is merely edited elsewhere: the places views came from.
enum class TreeDetail { stable, withSources };

/// The view and all below it, one indented line each: class, id, frame in the superview, text, what is special.
[[nodiscard]] std::string describeTree(const UIView& view, TreeDetail detail);

/// What a view says: its own text (of a text field without one, the placeholder), then its label for assistive tools.
[[nodiscard]] std::vector<std::string> textsOf(const UIView& view);
