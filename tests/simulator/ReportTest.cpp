#include "simulator/parlor/Report.h"

#include "platform/foundation/JSONDocument.h"
#include "tests/support/TemporaryFolder.h"

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
    const Report run{"run",
                     {flowReport(result), flowReport(FlowResult())},
                     {{Severity::warning, "a\xff.json", std::nullopt, "bell \a"}},
                     "full"};
    const Result<JSONDocument> report = JSONDocument::parse(run.json());
    ASSERT_TRUE(report) << report.failure().what;

    EXPECT_EQ(report.value().root().find("passed")->boolean(), false);
    EXPECT_EQ(report.value().root().find("failure")->string(), "full");
    const JSONValue finding = *report.value().root().find("findings")->elements().begin();
    EXPECT_EQ(finding.find("file")->string(), "a\xEF\xBF\xBD.json") << "valid whatever a file is called";
    EXPECT_EQ(finding.find("message")->string(), "bell \\x07");
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

TEST(ReportTest, IsAlsoWrittenForBuildServers) {
    FlowResult failed;
    failed.file = "a&b.yaml";
    failed.failures = {{Severity::error, "a&b.yaml", TextPlace{3, 5}, "no \"x\"\nbut <y>"}};
    EXPECT_EQ(Report({"run", {flowReport(failed), flowReport(FlowResult())}, {}}).junit(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<testsuite name=\"parlor run\" tests=\"3\" failures=\"1\">\n"
              "  <testcase classname=\"a&amp;b.yaml\" name=\"\">\n"
              "    <failure message=\"a&amp;b.yaml:3:5: error: no &quot;x&quot;&#10;but &lt;y>\"/>\n"
              "  </testcase>\n"
              "  <testcase classname=\"\" name=\"\">\n  </testcase>\n"
              "  <testcase classname=\"parlor run\" name=\"the bundle and the run itself\">\n  </testcase>\n"
              "</testsuite>\n");
}

TEST(ReportTest, OverwritesNothingButReports) {
    const support::TemporaryFolder folder;
    const auto isRefused = [&](const std::string& text) {
        return refusalOfReport(folder.write("file", text).string()).has_value();
    };
    EXPECT_TRUE(isRefused("[{\"sectionTitle\": \"mine\"}]"));
    EXPECT_FALSE(isRefused(""));
    EXPECT_FALSE(isRefused(Report{"shot", {}, {}}.json()));
    EXPECT_FALSE(isRefused(Report{"run", {}, {}}.junit()));
    EXPECT_FALSE(refusalOfReport("-"));
    EXPECT_FALSE(refusalOfReport((folder.path() / "new.json").string()));
}

} // namespace
