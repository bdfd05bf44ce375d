#include "simulator/parlor/Report.h"

#include "platform/foundation/JSONDocument.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

TEST(ReportTest, TellsWhatHappenedWithDecodedLinks) {
    FlowResult result;
    result.name = "a \"name\"";
    result.debugLines = {"willBecomeActive"};
    result.links = {{600ms, *NSURL::URLWithString("https://h.example/Category?mainCategory=Adult%20(18+)&icon")}};
    result.styleRequests = {{500ms, MSMessagesAppPresentationStyle::expanded, true}};
    result.failures = {{Severity::error, "f.yaml", TextPlace{3, 5}, "tapOn: no 'x'"}};
    const Result<JSONDocument> report = JSONDocument::parse(reportText({result, FlowResult()}));
    ASSERT_TRUE(report) << report.failure().what;

    const JSONValue flows = *report.value().root().find("flows");
    ASSERT_EQ(flows.elements().size(), 2u);
    const JSONValue flow = *flows.elements().begin();
    EXPECT_EQ(flow.find("name")->string(), "a \"name\"");
    EXPECT_EQ(flow.find("passed")->boolean(), false);
    EXPECT_EQ((*flow.find("failures")->elements().begin()).find("line")->number(), 3);
    EXPECT_EQ((*flow.find("debugLines")->elements().begin()).string(), "willBecomeActive");
    EXPECT_EQ((*flow.find("styleRequests")->elements().begin()).find("style")->string(), "expanded");

    const JSONValue link = *flow.find("links")->elements().begin();
    EXPECT_EQ(link.find("ms")->number(), 600);
    const JSONValue items = *link.find("items");
    ASSERT_EQ(items.elements().size(), 2u);
    EXPECT_EQ(items.elements()[0].find("value")->string(), "Adult (18+)");
    EXPECT_TRUE(items.elements()[1].find("value")->is(JSONKind::null)) << "a bare name has no value";
}

} // namespace
