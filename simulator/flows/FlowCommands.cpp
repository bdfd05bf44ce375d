#include "simulator/flows/FlowCommands.h"

const std::vector<FlowCommand>& flowCommands() {
    static const std::vector<FlowCommand> commands{
        {"launchApp", readLaunchApp},
        {"openBubble", readOpenBubble},
        {"receiveMessage", readReceiveMessage},
        {"startSending", readStartSending},
        {"cancelSending", readCancelSending},
        {"resign", readResign},
        {"setStyle", readSetStyle},
        {"wait", readWait},
        {"waitForAnimationToEnd", readWaitForAnimationToEnd},
        {"tapOn", readTapOn},
        {"swipe", readSwipe},
        {"scroll", readScroll},
        {"scrollUntilVisible", readScrollUntilVisible},
        {"inputText", readInputText},
        {"assertVisible", readAssertVisible},
        {"assertNotVisible", readAssertNotVisible},
        {"assertLink", readAssertLink},
        {"assertDebug", readAssertDebug},
        {"assertTree", readAssertTree},
        {"assertStyleRequests", readAssertStyleRequests},
        {"takeScreenshot", readTakeScreenshot},
        {"assertScreenshot", readAssertScreenshot},
        {"setAppearance", readSetAppearance},
    };
    return commands;
}
