// Feeds damaged definitions files to their reader: what it accepts can be merged with.
// SPDX-License-Identifier: MIT
#include "fuzz/fuzz_folder.h"
#include "fuzz/memory_system.h"
#include "merge/definitions.h"
#include "platform/io_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velmorankite;
  testing::MemorySystem memory(data, size);
  const platform::SystemOverride override(memory);
  try {
    testing::expect(!check_parameters(read_definitions("merge.trs").stitch).outcome.failed());
  } catch (const platform::IoError&) {
    return 0;
  }
  return 0;
}
