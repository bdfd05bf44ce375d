#include "tests/support/OutputCapture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

/// Fails every test that leaves a line on standard output or error which it did not take. Takes the place of the
/// default printer while a test runs: results are printed after the descriptors are restored.
class OutputGuard : public testing::EmptyTestEventListener {
public:
    explicit OutputGuard(std::unique_ptr<testing::TestEventListener> printer) : m_printer(std::move(printer)) {}

    void OnTestProgramStart(const testing::UnitTest& test) override { m_printer->OnTestProgramStart(test); }
    void OnTestIterationStart(const testing::UnitTest& test, int iteration) override {
        m_printer->OnTestIterationStart(test, iteration);
    }
    void OnTestStart(const testing::TestInfo& info) override {
        m_printer->OnTestStart(info);
        support::standardOutputCapture().begin();
        support::standardErrorCapture().begin();
        m_running = true;
    }
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (m_running) {
            m_results.push_back(result);
        } else {
            m_printer->OnTestPartResult(result);
        }
    }
    void OnTestEnd(const testing::TestInfo& info) override {
        const std::string output = support::standardOutputCapture().end();
        const std::string error = support::standardErrorCapture().end();
        m_running = false;
        for (const testing::TestPartResult& result : m_results) {
            m_printer->OnTestPartResult(result);
        }
        m_results.clear();
        expectEmpty("standard output", output);
        expectEmpty("standard error", error);
        m_printer->OnTestEnd(info);
    }
    void OnTestIterationEnd(const testing::UnitTest& test, int iteration) override {
        m_printer->OnTestIterationEnd(test, iteration);
    }
    void OnTestProgramEnd(const testing::UnitTest& test) override { m_printer->OnTestProgramEnd(test); }

private:
    static void expectEmpty(const char* stream, const std::string& text) {
        if (!text.empty()) {
            ADD_FAILURE() << "unannounced lines on " << stream << ":\n" << text;
        }
    }

    std::unique_ptr<testing::TestEventListener> m_printer;
    std::vector<testing::TestPartResult> m_results;
    bool m_running = false;
};

} // namespace

#if defined(__SANITIZE_THREAD__)
/// Pango looks fonts up on a thread of its own, behind locks that the sanitizer cannot see in a library built without
/// it.
extern "C" const char* __tsan_default_suppressions() {
    return "race:libpangoft2\nrace:libfontconfig\n";
}
#endif

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    testing::TestEventListeners& listeners = testing::UnitTest::GetInstance()->listeners();
    std::unique_ptr<testing::TestEventListener> printer{listeners.Release(listeners.default_result_printer())};
    listeners.Append(std::make_unique<OutputGuard>(std::move(printer)).release());
    return RUN_ALL_TESTS();
}
