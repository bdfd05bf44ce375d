#pragma once

#include "platform/uikit/view/UIView.h"

#include <string>

/// `stable` leaves out what changes when an interface file is merely edited elsewhere: the places views came from.
enum class TreeDetail { stable, withSources };

/// The view and all below it, one indented line each: class, id, frame in the superview, text, what is special.
[[nodiscard]] std::string describeTree(const UIView& view, TreeDetail detail);
