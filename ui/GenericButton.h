#pragma once

#include "platform/uikit/controls/UIButton.h"

/// A button that interface files can name. It behaves like its base class.
class GenericButton : public UIButton {
public:
    using UIButton::UIButton;
};
