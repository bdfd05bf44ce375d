#include "platform/messages/MessagesClasses.h"

#include "platform/messages/MSMessagesAppViewController.h"
#include "platform/runtime/ClassBuilder.h"

void registerMessagesClasses() {
    ClassBuilder<MSMessagesAppViewController>("MSMessagesAppViewController", "UIViewController").madeByCoder();
}
