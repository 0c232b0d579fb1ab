// SPDX-License-Identifier: MIT
#include "formats/netcdf_header.h"

#include <algorithm>
#include <bit>
#include <span>

#include "formats/header_status.h"
#include "grid/dummy.h"
#include "platform/byte_order.h"

namespace velmorankite {
namespace {

using platform::load;

constexpr std::int32_t dimension_tag = 10;
constexpr std::int32_t version_64_bit_offsets = 2;
constexpr std::int32_t version_64_bit_counts = 5;  // not the classic format any more

// What readers with fixed tables hold, and what is held here at all.
constexpr std::int32_t small_table = 32;
constexpr std::size_t small_name = 80;
constexpr std::int32_t largest_table = 256;
constexpr std::int32_t largest_name = 256;
constexpr std::int32_t most_kept_values = 32;
constexpr std::size_t kept_text = 80;

constexpr std::int64_t padded(std::int64_t bytes) {
  return (bytes + 3) / 4 * 4;
}

double value_at(const std::byte* bytes, netcdf_type type) {
  switch (type) {
    case netcdf_type::byte:
      return load<std::int8_t>(bytes);
    case netcdf_type::int16:
      return load<std::int16_t>(bytes, std::endian::big);
    case netcdf_type::int32:
      return load<std::int32_t>(bytes, std::endian::big);
    case netcdf_type::real32: {
      constexpr std::uint32_t missing = 0xFFFFFFFFU;
      const bool is_missing = load<std::uint32_t>(bytes) == missing;
      return static_cast<double>(is_missing ? dummy : load<float>(bytes, std::endian::big));
    }
    case netcdf_type::real64:
      return load<double>(bytes, std::endian::big);
    case netcdf_type::text:
      break;
  }
  return 0.0;
}

// Walks through the header once, block by block. Behind the end of the file everything is 0.
class Cursor {
 public:
  explicit Cursor(const platform::BinaryFile& file) : file_(file), block_(block_bytes) {}

  [[nodiscard]] bool ended() const noexcept { return ended_; }

  std::int32_t word() {
    std::array<std::byte, 4> bytes{};
    take(bytes);
    return load<std::int32_t>(bytes.data(), std::endian::big);
  }
  std::int64_t long_word() {
    std::array<std::byte, 8> bytes{};
    take(bytes);
    return load<std::int64_t>(bytes.data(), std::endian::big);
  }
  void take(std::span<std::byte> bytes) {
    for (std::byte& b : bytes) {
      if (next_ == limit_ && !fill()) {
        return;
      }
      b = block_[next_++];
    }
  }
  void skip(std::int64_t bytes) {
    const auto there = static_cast<std::int64_t>(limit_ - next_);
    if (bytes <= there) {
      next_ += static_cast<std::size_t>(bytes);
      return;
    }
    position_ += bytes - there;
    next_ = limit_;
  }

 private:
  static constexpr std::size_t block_bytes = 4096;

  bool fill() {
    next_ = 0;
    limit_ = ended_ ? 0 : file_.read_some(position_, block_);
    position_ += static_cast<std::int64_t>(limit_);
    ended_ = limit_ == 0;
    return !ended_;
  }

  const platform::BinaryFile& file_;
  std::vector<std::byte> block_;
  std::size_t next_ = 0;
  std::size_t limit_ = 0;
  std::int64_t position_ = 1;  // of the next block
  bool ended_ = false;
};

class Parser {
 public:
  Parser(const platform::BinaryFile& file, netcdf_header& header)
      : cursor_(file), header_(header) {}

  Status parse() {
    const std::int32_t version = cursor_.word() & 0xFF;  // behind the magic "CDF"
    if (version == version_64_bit_counts) {
      return layout_unsupported;
    }
    offsets_are_64_bit_ = version == version_64_bit_offsets;
    cursor_.skip(4);  // record count
    if (const Status status = parse_dimensions(); status.failed()) {
      return status;
    }
    parse_attributes(header_.attributes);
    cursor_.skip(4);  // the list's tag
    const std::int32_t count = table_length();
    for (std::int32_t i = 0; i < count && sound(); ++i) {
      parse_variable(header_.variables.emplace_back());
    }
    return failure_.failed() || !cursor_.ended() ? failure_ : header_too_short;
  }

 private:
  [[nodiscard]] bool sound() const noexcept { return !failure_.failed() && !cursor_.ended(); }

  void fail(Status status) {
    if (!failure_.failed()) {
      failure_ = status;
    }
  }

  // A length that is none ends the parse, and one beyond a small table is noted.
  std::int32_t table_length() {
    const std::int32_t length = cursor_.word();
    if (length < 0 || length > largest_table) {
      fail(table_too_long);
      return 0;
    }
    header_.within_small_tables = header_.within_small_tables && length <= small_table;
    return length;
  }

  std::string parse_name() {
    const std::int32_t length = cursor_.word();
    if (length < 0 || length > largest_name) {
      fail(table_too_long);
      return {};
    }
    std::string name(static_cast<std::size_t>(length), '\0');
    cursor_.take(std::as_writable_bytes(std::span(name)));
    cursor_.skip(padded(length) - length);
    header_.within_small_tables = header_.within_small_tables && name.size() <= small_name;
    return name;
  }

  Status parse_dimensions() {
    if (cursor_.word() != dimension_tag) {
      return cursor_.ended() ? header_too_short : netcdf_no_dimensions;
    }
    if (cursor_.word() != static_cast<std::int32_t>(header_.dimensions.size())) {
      return cursor_.ended() ? header_too_short : netcdf_not_two_dimensions;
    }
    for (netcdf_dimension& dimension : header_.dimensions) {
      dimension.name = parse_name();
      dimension.length = cursor_.word();
    }
    return failure_;
  }

  void parse_attributes(netcdf_attributes& list) {
    cursor_.skip(4);  // the list's tag
    const std::int32_t count = table_length();
    for (std::int32_t i = 0; i < count && sound(); ++i) {
      parse_attribute(list.emplace_back());
    }
  }

  void parse_attribute(netcdf_attribute& attribute) {
    attribute.name = parse_name();
    attribute.type = static_cast<netcdf_type>(cursor_.word());
    const std::int32_t count = cursor_.word();
    const std::size_t size = bytes_of(attribute.type);
    if (size == 0 || count < 0) {
      fail(cursor_.ended() ? header_too_short : layout_unsupported);
      return;
    }
    if (attribute.type == netcdf_type::text) {
      attribute.text.resize(std::min(static_cast<std::size_t>(count), kept_text));
      cursor_.take(std::as_writable_bytes(std::span(attribute.text)));
      cursor_.skip(padded(count) - static_cast<std::int64_t>(attribute.text.size()));
      return;
    }
    const std::int32_t kept = std::min(count, most_kept_values);
    header_.within_small_tables = header_.within_small_tables && kept == count;
    for (std::int32_t i = 0; i < kept; ++i) {
      std::array<std::byte, 8> bytes{};
      cursor_.take(std::span(bytes).first(size));
      attribute.values.push_back(value_at(bytes.data(), attribute.type));
    }
    const auto width = static_cast<std::int64_t>(size);
    cursor_.skip(padded(count * width) - kept * width);
  }

  void parse_variable(netcdf_variable& variable) {
    variable.name = parse_name();
    const std::int32_t count = table_length();
    for (std::int32_t i = 0; i < count && sound(); ++i) {
      variable.dimensions.push_back(cursor_.word());
    }
    parse_attributes(variable.attributes);
    variable.type = static_cast<netcdf_type>(cursor_.word());
    cursor_.skip(4);  // size in bytes, which follows from type and dimensions
    variable.start = offsets_are_64_bit_ ? cursor_.long_word() : cursor_.word();
  }

  Cursor cursor_;
  netcdf_header& header_;
  bool offsets_are_64_bit_ = false;
  Status failure_ = success;
};

}  // namespace

std::size_t bytes_of(netcdf_type type) noexcept {
  switch (type) {
    case netcdf_type::byte:
    case netcdf_type::text:
      return 1;
    case netcdf_type::int16:
      return 2;
    case netcdf_type::int32:
    case netcdf_type::real32:
      return 4;
    case netcdf_type::real64:
      return 8;
  }
  return 0;
}

const netcdf_attribute* find_attribute(const netcdf_attributes& list,
                                       std::string_view name) noexcept {
  const auto found = std::find_if(list.begin(), list.end(),
                                  [name](const netcdf_attribute& a) { return a.name == name; });
  return found == list.end() ? nullptr : &*found;
}

const netcdf_variable* netcdf_header::find_variable(std::string_view name) const noexcept {
  const auto found = std::find_if(variables.begin(), variables.end(),
                                  [name](const netcdf_variable& v) { return v.name == name; });
  return found == variables.end() ? nullptr : &*found;
}

Status parse_netcdf_header(const platform::BinaryFile& file, netcdf_header& header) {
  header = {};
  return Parser(file, header).parse();
}

Status read_netcdf_values(const platform::BinaryFile& file, const netcdf_variable& variable,
                          std::int64_t first, std::vector<double>& values) {
  const std::size_t size = bytes_of(variable.type);
  if (size == 0 || variable.type == netcdf_type::text) {
    return number_unreadable;
  }
  if (variable.start < 0 || variable.start > file.size()) {
    return pointer_outside;
  }
  std::vector<std::byte> bytes(values.size() * size);
  const std::int64_t position = variable.start + first * static_cast<std::int64_t>(size) + 1;
  if (file.read_some(position, bytes) < bytes.size()) {
    return pointer_outside;
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = value_at(&bytes[i * size], variable.type);
  }
  return success;
}

}  // namespace velmorankite
