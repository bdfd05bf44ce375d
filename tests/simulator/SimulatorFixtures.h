#pragma once

#include "simulator/conversation/BundleSetup.h"
#include "simulator/conversation/ConversationHost.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

/// A conversation with the extension that the build assembled, in virtual time.
class ConversationTest : public testing::Test {
protected:
    ConversationTest() {
        openExtensionBundle(TD_BUNDLE);
        MainRunLoop::shared().useVirtualClock();
        host = std::make_shared<ConversationHost>(deviceNamed("15").value(), std::vector<std::string>{"A", "B"});
    }
    ~ConversationTest() override {
        host->close();
        MainRunLoop::shared().reset();
        static_cast<void>(support::takeStandardOutput());
    }

    std::shared_ptr<ConversationHost> host;
};

/// Flows that are played on the bundle that the build assembled, or on another, as if read from a folder of their own.
class FlowTest : public testing::Test {
protected:
    ~FlowTest() override { static_cast<void>(support::takeStandardOutput()); }

    FlowResult play(const std::string& text) {
        openExtensionBundle(bundle);
        FlowResult result;
        const std::optional<Flow> flow = readFlow(text, (folder.path() / "test.yaml").string(), result.failures);
        return flow ? FlowPlayer(*flow, deviceNamed(device).value(), {}, pictures).play() : result;
    }
    std::vector<std::string> failuresOf(const std::string& text) {
        std::vector<std::string> lines;
        for (const Finding& failure : play(text).failures) {
            lines.push_back(failure.what);
        }
        return lines;
    }

    support::TemporaryFolder folder;
    std::filesystem::path bundle = TD_BUNDLE;
    std::string device = "15";
    PictureSettings pictures{folder.path() / "out"};
};
