#pragma once

/// The program: reads the command line, does what it says and gives the exit status.
[[nodiscard]] int runCommandLine(int argc, const char* const* argv);
