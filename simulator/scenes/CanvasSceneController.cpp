#include "simulator/scenes/CanvasSceneController.h"

#include "platform/runtime/ClassBuilder.h"

#include <array>
#include <string>

namespace {

struct Ink {
    const char* name;
    const char* color;
};

constexpr std::array inks{Ink{"White", "whiteColor"}, Ink{"Mint", "systemMintColor"}, Ink{"Pink", "systemPinkColor"}};

} // namespace

void CanvasSceneController::viewDidLoad() {
    MSMessagesAppViewController::viewDidLoad();
    showButtons();
    showCount();
}

void CanvasSceneController::btnPencilWithSender(NSObject*) {
    canvas->setShowPencil(!canvas->showPencil());
    showButtons();
}

void CanvasSceneController::btnColorWithSender(NSObject*) {
    m_color = (m_color + 1) % inks.size();
    canvas->setStrokeColor(UIColor::systemColorNamed(inks.at(m_color).color));
    showButtons();
}

void CanvasSceneController::btnClearWithSender(NSObject*) {
    canvas->clear();
    showCount();
}

void CanvasSceneController::didBeginDrawing() {
    lblStrokes->setText("drawing …");
}

void CanvasSceneController::didEndDrawing() {
    showCount();
}

void CanvasSceneController::showButtons() {
    btnPencil->setTitle(canvas->showPencil() ? "Hide pencil" : "Show pencil");
    btnColor->setTitle(inks.at(m_color).name);
}

void CanvasSceneController::showCount() {
    const int strokes = canvas->numberOfStrokes();
    lblStrokes->setText(std::to_string(strokes) + (strokes == 1 ? " stroke" : " strokes"));
}

void registerSceneClasses() {
    ClassBuilder<CanvasSceneController>("CanvasSceneController", "MSMessagesAppViewController")
        .madeByCoder()
        .outlet("canvas", &CanvasSceneController::canvas)
        .outlet("lblStrokes", &CanvasSceneController::lblStrokes)
        .outlet("btnPencil", &CanvasSceneController::btnPencil)
        .outlet("btnColor", &CanvasSceneController::btnColor)
        .action("btnPencilWithSender:", &CanvasSceneController::btnPencilWithSender)
        .action("btnColorWithSender:", &CanvasSceneController::btnColorWithSender)
        .action("btnClearWithSender:", &CanvasSceneController::btnClearWithSender)
        .action("didBeginDrawing", &CanvasSceneController::didBeginDrawing)
        .action("didEndDrawing", &CanvasSceneController::didEndDrawing);
}
