// SPDX-License-Identifier: MIT
#include "formats/compressed_grid.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "support/compressed_grids.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::chunk;
using testing::chunked_block;
using testing::compressed_file;
using testing::deflate_block;
using testing::marked_block;
using testing::raw_block;
using testing::read_file;
using testing::write_file;
using names = std::vector<std::string>;

std::string expanded(std::string_view packed, std::size_t room) {
  std::string out(room, '\0');
  const std::size_t length =
      expand_lzrw1(std::as_bytes(std::span(packed)), std::as_writable_bytes(std::span(out)));
  out.resize(length);
  return out;
}

TEST(ChunkExpander, what_a_compressor_packs_comes_back) {
  std::mt19937 random(7);
  for (const std::size_t size : {1U, 15U, 16U, 17U, 300U, 5000U, 16384U}) {
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
      byte = static_cast<char>(random() % 3);
    }
    const std::string packed = testing::compress_lzrw1(bytes);
    EXPECT_EQ(expanded(packed, size), bytes) << size;
    EXPECT_EQ(expanded(packed, size - 1), "") << size;
  }
  EXPECT_EQ(expanded(std::string("\1\0\0\0plain", 9), 16384), "plain");
}

TEST(ChunkExpander, unsound_chunks_expand_to_nothing) {
  const std::string unsound[] = {
      "",
      std::string("\0\0\0", 3),
      std::string("\5\0\0\0abc", 7),           // unknown flag
      std::string("\0\0\0\0\1", 5),            // half a control word
      std::string("\0\0\0\0\1\0\x02\x01", 8),  // a copy of what is not there yet
      std::string("\0\0\0\0\2\0a\x02", 8),     // half a copy
      std::string("\0\0\0\0\2\0a\x02\0", 9)};  // distance 0
  for (const std::string& packed : unsound) {
    EXPECT_EQ(expanded(packed, 64), "");
  }
}

// 50 columns by 9 rows of a smooth field.
class CompressedGrid : public ::testing::Test {
 protected:
  CompressedGrid() {
    testing::write_grid(folder / "plain.grd", {0.0, 0.0, 1.0, 1.0, 50, 9}, [](int c, int r) {
      return std::floor(std::sin(0.1F * static_cast<float>(c)) * 20.0F) + static_cast<float>(r);
    });
    plain = read_file(folder / "plain.grd");
    cells = plain.substr(512);
  }

  [[nodiscard]] std::string rows(std::size_t first, std::size_t count) const {
    return cells.substr((first - 1) * 200, count * 200);
  }

  Status expand(const std::string& file) {
    write_file(folder / "packed.grd", file);
    return EXPUNCOMPGRID((folder / "packed.grd").string(), (folder / "out.grd").string());
  }

  testing::TemporaryFolder folder;
  std::string plain;
  std::string cells;
};

TEST_F(CompressedGrid, blocks_of_every_kind_expand_to_the_plain_grid) {
  const std::vector<std::string> blocks[] = {
      {raw_block(rows(1, 4)), raw_block(rows(5, 4)), raw_block(rows(9, 1))},
      {deflate_block(rows(1, 4)), deflate_block(rows(5, 4)), deflate_block(rows(9, 1))},
      {chunked_block(rows(1, 4), 16384), chunked_block(rows(5, 4), 300),
       chunked_block(rows(9, 1), 3)},
      {deflate_block(rows(1, 4)), raw_block(rows(5, 4)), chunked_block(rows(9, 1), 100)}};
  for (const auto& kinds : blocks) {
    ASSERT_EQ(expand(compressed_file(plain, 4, kinds)), success);
    EXPECT_EQ(read_file(folder / "out.grd"), plain);
  }
  ASSERT_EQ(expand(compressed_file(plain, 4, {})), success);
  EXPECT_EQ(read_file(folder / "out.grd"), plain.substr(0, 512));
}

TEST_F(CompressedGrid, a_header_that_ends_early_tells_how_far_it_got) {
  const std::string file = compressed_file(plain, 9, {raw_block(cells)});
  const auto status_at = [&](std::size_t bytes) { return expand(file.substr(0, bytes)).code; };
  const std::pair<std::size_t, int> examples[] = {
      {0, -20003},   {1, -20004},   {3, -20004},   {4, -20006},   {8, -20008},   {12, -20009},
      {16, -20010},  {20, -20011},  {75, -20017},  {76, -20018},  {512, -20019}, {516, -20020},
      {520, -20021}, {528, -20023}, {539, -20023}, {540, -21001}, {2339, -21001}};
  for (const auto& [bytes, status] : examples) {
    EXPECT_EQ(status_at(bytes), status) << bytes;
  }
  EXPECT_EQ(folder.names(), (names{"packed.grd", "plain.grd"}));
  EXPECT_EQ(expand(plain), expand_not_compressed);
  EXPECT_EQ(EXPUNCOMPGRID(" ", "out", expand_lzrw1), expand_name_blank);
  EXPECT_EQ(EXPUNCOMPGRID("missing", "out", expand_lzrw1), expand_input_unopened);
}

TEST_F(CompressedGrid, unsound_blocks_fail_by_their_number_and_leave_no_output) {
  const auto with_second = [&](const std::string& block) {
    return expand(compressed_file(plain, 5, {raw_block(rows(1, 5)), block})).code;
  };
  const std::string packed = testing::compress_lzrw1(rows(6, 4));
  const std::string deflated = deflate_block(rows(6, 4));
  EXPECT_EQ(with_second(marked_block(1, chunk(799, packed))), -24002);
  EXPECT_EQ(with_second(marked_block(1, chunk(801, packed))), -24002);
  EXPECT_EQ(with_second(marked_block(1, chunk(800, rows(6, 4)))), -27002);
  EXPECT_EQ(with_second(marked_block(1, chunk(16385, packed))), -33002);
  EXPECT_EQ(with_second(marked_block(1, chunk(800, packed).substr(0, 50))), -33002);
  EXPECT_EQ(with_second(marked_block(3, rows(6, 4))), -31002);
  EXPECT_EQ(with_second(deflated.substr(0, deflated.size() - 9)), -32002);
  EXPECT_EQ(with_second(deflate_block(rows(5, 5))), -32002);  // a row more than the block has
  EXPECT_EQ(folder.names(), (names{"packed.grd", "plain.grd"}));
}

TEST_F(CompressedGrid, tables_that_lie_cost_no_memory) {
  std::string file = compressed_file(plain, 9, {raw_block(cells)});
  const auto patched = [&](std::size_t at, std::int64_t value, std::size_t size) {
    std::string bytes = file;
    std::memcpy(bytes.data() + at, &value, size);
    return expand(bytes).code;
  };
  EXPECT_EQ(patched(520, 0x7FFFFFFF, 4), expand_tables_missing.code);
  EXPECT_EQ(patched(520, -1, 4), expand_tables_unsound.code);
  EXPECT_EQ(patched(528, -1, 8), -21001);
  EXPECT_EQ(patched(528, INT64_MAX, 8), -21001);
  EXPECT_EQ(patched(536, 0x7FFFFFFF, 4), -21001);
  file = compressed_file(plain, 0x7FFFFFFF, {deflate_block(cells)});
  std::int32_t huge[] = {0x7FFFFFFF, 0x7FFFFFFF};
  std::memcpy(file.data() + 8, huge, sizeof huge);
  EXPECT_EQ(expand(file), expand_tables_unsound);
  huge[1] = 0x0FFFFFFF;
  std::memcpy(file.data() + 8, huge, sizeof huge);
  EXPECT_EQ(expand(file).code, 0);  // short, but no more than the block holds
  EXPECT_EQ(read_file(folder / "out.grd").size(), plain.size());
}

TEST_F(CompressedGrid, a_full_disk_or_a_failing_read_leaves_no_output) {
  write_file(folder / "packed.grd", compressed_file(plain, 9, {chunked_block(cells, 500)}));
  for (const auto call : {testing::system_call::open, testing::system_call::read,
                          testing::system_call::write, testing::system_call::rename}) {
    testing::fail_each_call(
        call, ENOSPC,
        [&] {
          EXPECT_TRUE(EXPUNCOMPGRID((folder / "packed.grd").string(), (folder / "out.grd").string())
                          .failed() ||
                      std::filesystem::exists(folder / "out.grd"));
        },
        [&](int) {
          EXPECT_EQ(folder.names(), (names{"packed.grd", "plain.grd"}));
        });
    std::filesystem::remove(folder / "out.grd");
  }
}

}  // namespace
}  // namespace velmorankite
