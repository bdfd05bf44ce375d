#include "simulator/commands/RunOptions.h"

std::filesystem::path besideProgram(const std::string& name) {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    std::filesystem::path folder = program.parent_path();
    while (!std::filesystem::exists(folder / name, error) && folder.has_relative_path()) {
        folder = folder.parent_path();
    }
    return folder / name;
}
