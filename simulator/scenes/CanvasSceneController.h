#pragma once

#include "platform/messages/MSMessagesAppViewController.h"
#include "platform/runtime/Outlet.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/controls/UILabel.h"
#include "ui/DrawingView.h"

/// A place to try the drawing canvas, which no screen of the extension shows: a canvas under a row of buttons and the
/// number of its strokes. Made from Canvas.storyboard, by the host, in the extension's stead.
class CanvasSceneController : public MSMessagesAppViewController, public DrawingViewDelegate {
public:
    using MSMessagesAppViewController::MSMessagesAppViewController;

    void viewDidLoad() override;

    // Actions of the storyboard.
    void btnPencilWithSender(NSObject* sender); // btnPencilWithSender:
    void btnColorWithSender(NSObject* sender);  // btnColorWithSender:
    void btnClearWithSender(NSObject* sender);  // btnClearWithSender:

    // DrawingViewDelegate.
    void didBeginDrawing(); // didBeginDrawing
    void didEndDrawing();   // didEndDrawing

    Outlet<DrawingView> canvas{this, "canvas"};
    Outlet<UILabel> lblStrokes{this, "lblStrokes"};
    Outlet<UIButton> btnPencil{this, "btnPencil"};
    Outlet<UIButton> btnColor{this, "btnColor"};

private:
    void showButtons();
    void showCount();

    std::size_t m_color = 0;
};

/// Makes the class of the scene known by name.
void registerSceneClasses();
