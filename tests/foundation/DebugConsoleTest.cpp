#include "platform/foundation/DebugConsole.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/FileReading.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

TEST(DebugConsole, KeepsLinesOfSeveralThreadsWholeAndInOrderThroughAPipe) {
    const support::TemporaryFolder folder;
    const std::string file = folder.write("Lines", "").string();
    FILE* reader = popen(("cat >'" + file + "'").c_str(), "w");
    const int saved = dup(STDOUT_FILENO);
    dup2(fileno(reader), STDOUT_FILENO);
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
    dup2(saved, STDOUT_FILENO);
    close(saved);
    pclose(reader);
    std::istringstream lines(readWholeFile(file).value());
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

TEST(DebugConsole, EscapesLinesWhenItIsATerminalAndTellsTheHostTheirLetters) {
    std::string heard;
    setDebugConsoleObserver([&](std::string_view line) { heard = line; });
    print("a\x1b[31m");
    setDebugConsoleEscape([](std::string_view line) { return std::string(line.substr(0, 1)); });
    print("b\x1b[31m");
    setDebugConsoleEscape(nullptr);
    setDebugConsoleObserver(nullptr);
    EXPECT_EQ(support::takeStandardOutput(), "a\x1b[31m\nb\n");
    EXPECT_EQ(heard, "b\x1b[31m");
}

TEST(FatalErrorDeathTest, NamesMessageFileAndLine) {
    EXPECT_DEATH(fatalError("Could not load view with type X", "ExtensionBundle", 18),
                 "^Fatal error: Could not load view with type X: file ExtensionBundle, line 18\n$");
    EXPECT_DEATH(fatalError("no place"), "^Fatal error: no place\n$");
}
