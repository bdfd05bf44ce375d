#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The debug console is the program's standard output. Lines arrive whole and in order, from any thread, and are
/// flushed at once: nothing is lost through a pipe or before a fatal stop.

/// Writes `line` and a line feed.
void print(std::string_view line);

/// For the host, when standard output is a terminal: makes each line harmless to it. Set before anything is printed.
void setDebugConsoleEscape(std::string (*escape)(std::string_view));

/// Whether a line could not be written whole: standard output is closed, or its disk full.
[[nodiscard]] bool isDebugConsoleBroken();

/// For the host, which reports what the console shows: called with every printed line, on the printing thread, one
/// line at a time. It must not print. Set it while only the main thread runs; an empty function removes it.
void setDebugConsoleObserver(std::function<void(std::string_view)> observer);
