#include "simulator/scenes/SceneClasses.h"

#include "simulator/scenes/CanvasSceneController.h"

#include "platform/runtime/ClassBuilder.h"

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
