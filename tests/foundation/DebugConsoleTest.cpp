#include "platform/foundation/DebugConsole.h"

#include "platform/foundation/FatalError.h"
#include "tests/support/Output.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

/// Standard output as a pipe that somebody reads, while it lives.
class PipedOutput {
public:
    PipedOutput() : m_saved(dup(STDOUT_FILENO)) {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        dup2(ends[1], STDOUT_FILENO);
        close(ends[1]);
        m_reader = std::thread([this, end = ends[0]] {
            char buffer[512];
            ssize_t count = 0;
            while ((count = read(end, buffer, sizeof buffer)) > 0) {
                m_text.append(buffer, static_cast<std::size_t>(count));
            }
            close(end);
        });
    }
    [[nodiscard]] std::string finish() {
        dup2(m_saved, STDOUT_FILENO);
        close(m_saved);
        m_reader.join();
        return m_text;
    }

private:
    int m_saved;
    std::string m_text;
    std::thread m_reader;
};

} // namespace

TEST(DebugConsole, KeepsLinesOfSeveralThreadsWholeAndInOrderThroughAPipe) {
    PipedOutput output;
    std::vector<std::thread> threads;
    for (char name = 'a'; name < 'e'; ++name) {
        threads.emplace_back([name] {
            for (int i = 0; i < 100; ++i) {
                print(name + std::to_string(i) + " " + std::string(9000, name)); // longer than a pipe writes at once
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::istringstream lines(output.finish());
    std::map<char, int> next;
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        const char name = line.at(0);
        ASSERT_EQ(line, name + std::to_string(next[name]++) + " " + std::string(9000, name));
    }
    EXPECT_EQ(count, 400);
}

TEST(DebugConsole, WritesALineAtOnceBehindWhatTheStreamHeldAndTellsTheHost) {
    std::vector<std::string> lines;
    setDebugConsoleObserver([&](std::string_view line) { lines.emplace_back(line); });
    std::fputs("earlier\n", stdout);
    print("❌ JSON file not found: Family");
    print("");
    setDebugConsoleObserver(nullptr);
    print("two");
    EXPECT_EQ(lines, (std::vector<std::string>{"❌ JSON file not found: Family", ""}));
    EXPECT_EQ(support::takeStandardOutput(), "earlier\n❌ JSON file not found: Family\n\ntwo\n");
}

TEST(FatalErrorDeathTest, NamesMessageFileAndLine) {
    EXPECT_DEATH(fatalError("Could not load view with type X", "ExtensionBundle", 18),
                 "^Fatal error: Could not load view with type X: file ExtensionBundle, line 18\n$");
    EXPECT_DEATH(fatalError("no place"), "^Fatal error: no place\n$");
}
