// Feeds damaged DXF files to the reader of the stitch line.
// SPDX-License-Identifier: MIT
#include "fuzz/fuzz_folder.h"
#include "fuzz/memory_system.h"
#include "merge/stitch_line.h"
#include "platform/io_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velmorankite;
  testing::MemorySystem memory(data, size);
  const platform::SystemOverride override(memory);
  stitch_line line;
  try {
    const Outcome outcome = RDSTITCHDXF("line.dxf", 1.0, line);
    testing::expect(outcome.failed() ? !outcome.why.empty() : line.x.size() >= 2);
    testing::expect(outcome.failed() || line.x.size() == line.y.size());
  } catch (const platform::IoError&) {
    return 0;
  }
  return 0;
}
