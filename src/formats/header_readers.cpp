// SPDX-License-Identifier: MIT
#include "formats/header_readers.h"

namespace velmorankite {

bool read_header_bytes(const header_source& source, std::int64_t position,
                       std::span<std::byte> bytes) {
  return source.binary->read_some(position, bytes) == bytes.size();
}

}  // namespace velmorankite
