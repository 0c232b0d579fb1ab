// Line ends, blank padded texts and decoded doubles, as the header readers share them.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "platform/binary_file.h"
#include "platform/text_file.h"

namespace velmorankite {

// Which system wrote a text file.
enum class line_end_kind : std::int32_t { unsettled = -1, windows = 0, unix_system = 1, mac = 2 };

// Senses the line end of a text file from its first 1024 bytes: LF alone, CR alone, or CR with
// the first LF right behind the first CR. Everything else is unsettled, and so are an empty file
// and one that cannot be read.
[[nodiscard]] line_end_kind ISFILEUNIX(const std::filesystem::path& path);

// How a text file is opened whose line end has been sensed; an unsettled file takes any line end.
[[nodiscard]] platform::line_end text_ending(line_end_kind kind) noexcept;

// Reads one line that ends in LF, CR LF or CR, without its end.
//   position  byte position of the line, from 1; out: of what follows it.
//   size      most characters to take; the rest of a longer line is left for the next call, and
//             a line of just this length leaves its end.
// A file that cannot be read gives an empty line, as its end does.
[[nodiscard]] std::string RDLINE(const platform::BinaryFile& file, std::int64_t& position,
                                 std::size_t size);

// The text without leading and trailing blanks, every NUL in it made a blank first.
[[nodiscard]] std::string FTRIM(std::string_view text);

// Characters up to the last that is neither a blank nor a NUL.
[[nodiscard]] std::size_t FTAIL(std::string_view text) noexcept;

// Folds a to z to upper case, whatever the locale.
void FUPPER(std::span<char> text) noexcept;

inline constexpr std::int32_t decode_little_endian = 0;
inline constexpr std::int32_t decode_big_endian = 1;  // any other order code is little-endian

// An IEEE double put together by arithmetic from its 8 bytes. It differs from the stored value
// where that is zero, denormal, infinite or NaN, since every number gets the leading 1: a zero
// becomes 2 to the power -1023, an infinity or NaN an infinity.
[[nodiscard]] double DECODE_VULCAN_BINARY(const std::byte* bytes, std::int32_t order_code) noexcept;

}  // namespace velmorankite
