// The program: one argument, the definitions file.
// SPDX-License-Identifier: MIT
#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <string_view>

#include "merge/driver.h"
#include "platform/file_tests.h"
#include "platform/io_error.h"
#include "platform/process.h"
#include "platform/scratch_file.h"

namespace {

constexpr int exit_failed_file = 2;

void write_line(std::FILE* stream, std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stream);
  std::fputc('\n', stream);
  std::fflush(stream);  // both streams in the order in which things happen
}

void remark(std::string_view words) {
  std::fputs("velmorankite: ", stderr);
  write_line(stderr, velmorankite::platform::printable(words));
}

// There are no options: whatever looks like one and is no file asks how the program is called.
bool asks_for_help(std::string_view argument) {
  return argument.starts_with('-') && !velmorankite::platform::file_exists(argument);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    velmorankite::platform::remove_scratch_on_signals();
    velmorankite::platform::make_write_signals_errors();
    std::optional<std::string_view> definitions;
    if (argc > 1 && !asks_for_help(argv[1])) {
      definitions = argv[1];
    }
    velmorankite::run_merge(definitions,
                            {[](std::string_view line) { write_line(stdout, line); }, remark});
    if (!definitions) {
      remark("mergedefs.trs stands for a text file of 13 lines, told in docs/definitions.md");
    }
  } catch (const std::bad_alloc&) {
    remark("not enough memory");
    return exit_failed_file;
  } catch (const std::exception& failure) {
    remark(failure.what());
    return exit_failed_file;
  }
  if (std::ferror(stdout) != 0) {
    remark("standard output: cannot be written");
    return exit_failed_file;
  }
  return 0;
}
