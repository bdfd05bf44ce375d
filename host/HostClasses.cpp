#include "host/HostClasses.h"

#include "host/MessagesViewController.h"

#include "platform/runtime/ClassBuilder.h"

void registerHostClasses() {
    ClassBuilder<MessagesViewController>("MessagesViewController", "MSMessagesAppViewController").madeByCoder();
}
