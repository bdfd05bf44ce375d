#pragma once

/// Sends what is written to standard output to standard error while it lives: for commands whose own result goes to
/// standard output.
class OutputAside {
public:
    OutputAside();
    ~OutputAside();
    OutputAside(const OutputAside&) = delete;
    OutputAside& operator=(const OutputAside&) = delete;

private:
    int m_output;
};
