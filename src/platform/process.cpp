// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>

namespace velmorankite::platform {
namespace {

#if defined(_WIN32)
constexpr char folder_separator = ';';
#else
constexpr char folder_separator = ':';
#endif

}  // namespace

std::optional<std::string> environment(const std::string& name) {
  const char* const text = std::getenv(name.c_str());
  if (text == nullptr) {
    return std::nullopt;
  }
  return text;
}

std::vector<std::filesystem::path> folders_in(const std::string& name) {
  std::vector<std::filesystem::path> folders;
  const std::optional<std::string> list = environment(name);
  for (std::size_t at = 0; list && at <= list->size();) {
    const std::size_t end = std::min(list->find(folder_separator, at), list->size());
    const std::string folder = list->substr(at, end - at);
    folders.emplace_back(folder.empty() ? "." : folder);
    at = end + 1;
  }
  return folders;
}

void make_write_signals_errors() {
#if defined(SIGPIPE)
  std::signal(SIGPIPE, SIG_IGN);
#endif
#if defined(SIGXFSZ)
  std::signal(SIGXFSZ, SIG_IGN);
#endif
}

bool run_command(const std::string& command) {
  // The shell is what the caller asks for; NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe)
  return std::system(command.c_str()) == 0;
}

}  // namespace velmorankite::platform
