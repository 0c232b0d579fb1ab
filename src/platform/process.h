// The process's surroundings: environment, shell.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmorankite::platform {

// The environment variable's text, or nothing where it is not set.
[[nodiscard]] std::optional<std::string> environment(const std::string& name);

// The folders that an environment variable such as "PATH" lists, in their order; an empty entry is
// the current folder. None where the variable is not set.
[[nodiscard]] std::vector<std::filesystem::path> folders_in(const std::string& name);

// Makes a closed pipe or a limit on file sizes an error of the write that meets it, where the
// system would end the process with a signal. For the program's main.
void make_write_signals_errors();

// Runs a command line in the system's shell and waits. True if it ran and ended with status 0.
[[nodiscard]] bool run_command(const std::string& command);

}  // namespace velmorankite::platform
