// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include <csignal>
#include <cstdlib>

namespace velmorankite::platform {

std::optional<std::string> environment(const std::string& name) {
  const char* const text = std::getenv(name.c_str());
  if (text == nullptr) {
    return std::nullopt;
  }
  return text;
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
