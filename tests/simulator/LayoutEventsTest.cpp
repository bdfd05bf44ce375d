#include "platform/foundation/FileReading.h"
#include "simulator/conversation/ExtensionBundle.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> layoutEventsOf(const std::filesystem::path& bundle) {
    openExtensionBundle(bundle, {});
    FlowProblems problems("test.yaml");
    const std::optional<Flow> flow = readFlow("- launchApp\n- wait: 600\n- setStyle: compact\n", problems);
    std::vector<std::string> texts;
    for (const Event& event : FlowPlayer(*flow, deviceNamed("15").value(), {}).play().events) {
        if (event.kind == "layout") {
            texts.push_back(event.text);
        }
    }
    static_cast<void>(support::takeStandardOutput());
    return texts;
}

TEST(LayoutEventsTest, AreNoneForTheScreenInEitherStyle) {
    EXPECT_THAT(layoutEventsOf(TD_BUNDLE), IsEmpty());
}

TEST(LayoutEventsTest, NameConstraintsThatContradictEachOtherAndTheirPlace) {
    const support::TemporaryFolder bundle;
    std::filesystem::copy(TD_BUNDLE, bundle.path(), std::filesystem::copy_options::recursive);
    std::string nib = readWholeFile(bundle.path() / "ModeTblCell.xib").value();
    const std::string two = "<constraints><constraint firstAttribute=\"width\" constant=\"10\" id=\"con-01-ten\"/>"
                            "<constraint firstAttribute=\"width\" constant=\"20\" id=\"con-02-20p\"/>";
    bundle.write("ModeTblCell.xib", nib.replace(nib.find("<constraints>"), std::strlen("<constraints>"), two));
    EXPECT_THAT(layoutEventsOf(bundle.path()),
                Contains(AllOf(HasSubstr("con-01-ten (ModeTblCell.xib:"), HasSubstr("con-02-20p"))));
}

} // namespace
