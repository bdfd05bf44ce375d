#pragma once

#include "simulator/conversation/ConversationHost.h"
#include "simulator/conversation/ExtensionBundle.h"
#include "tests/support/Output.h"

#include <gtest/gtest.h>

#include <memory>

/// A conversation with the extension that the build assembled, in virtual time.
class ConversationTest : public testing::Test {
protected:
    ConversationTest() {
        openExtensionBundle(TD_BUNDLE, {});
        MainRunLoop::shared().useVirtualClock();
        host = ConversationHost::create(deviceNamed("15").value(), {"A", "B"}, log);
    }
    ~ConversationTest() override {
        host->close();
        MainRunLoop::shared().reset();
        static_cast<void>(support::takeStandardOutput());
    }

    EventLog log{{}};
    std::shared_ptr<ConversationHost> host;
};
