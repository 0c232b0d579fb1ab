// SPDX-License-Identifier: MIT
#include "formats/buffered_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

std::span<const std::byte> bytes_of(const std::string& text) {
  return std::as_bytes(std::span(text));
}

class BufferedFile : public ::testing::Test {
 protected:
  BufferedFile() { EXPECT_EQ(OPENBUFF(path, unit, state), success); }

  Status put(const std::string& text) { return PUTBUF(bytes_of(text), unit, state, buffer); }
  void close() { CLOSBUFF(unit, state, buffer); }
  std::string get(std::size_t count, Status expected = success) {
    std::string text(count, '?');
    EXPECT_EQ(GETBUF(std::as_writable_bytes(std::span(text)), unit, state, buffer), expected);
    return text;
  }
  void reopen() { EXPECT_EQ(OPENBUFF(path, unit, state), success); }
  [[nodiscard]] std::string contents() const { return testing::read_file(path); }

  testing::TemporaryFolder folder;
  std::filesystem::path path = folder / "a.bin";
  positioned_file unit;
  block_state state;
  std::vector<std::byte> buffer = std::vector<std::byte>(std::size_t{3} * file_block_bytes);
};

TEST_F(BufferedFile, holds_whole_blocks_and_nothing_for_nothing) {
  EXPECT_EQ(put(""), putbuf_nothing);
  close();
  EXPECT_EQ(contents(), "");
  reopen();
  EXPECT_EQ(put("A"), success);
  EXPECT_EQ(state.position, 1);
  close();
  EXPECT_EQ(contents().size(), 4096U);
  EXPECT_EQ(contents()[0], 'A');
  EXPECT_EQ(state.position, 0);
  EXPECT_EQ(state.block_count, 0);
}

TEST_F(BufferedFile, gives_back_what_was_put_across_blocks) {
  std::string text;
  for (int i = 0; i < 3000; ++i) {
    text += std::to_string(i) + ",";
  }
  std::size_t at = 0;
  for (std::size_t piece = 1; at < text.size(); piece = piece * 3 + 1) {
    EXPECT_EQ(put(text.substr(at, piece)), success);
    at += piece;
  }
  EXPECT_EQ(state.block_count, static_cast<std::int32_t>(text.size() / 4096));
  EXPECT_EQ(GETBUFFPOS(unit), 4096 * state.block_count);
  close();
  reopen();
  std::string taken;
  for (const std::size_t count : {std::size_t{5}, std::size_t{4091}, std::size_t{1}}) {
    taken += get(count);
  }
  taken += get(text.size() - taken.size());
  EXPECT_TRUE(taken == text);
}

TEST_F(BufferedFile, writes_a_buffer_that_was_filled_beyond_a_block) {
  std::fill(buffer.begin(), buffer.end(), std::byte{'x'});
  buffer[4096] = std::byte{'y'};
  state.position = 4097;
  EXPECT_EQ(put("z"), success);
  EXPECT_EQ(state.block_count, 1);
  EXPECT_EQ(state.position, 2);
  state.position = 4096 + 10;
  close();
  const std::string written = contents();
  EXPECT_EQ(written.size(), 3U * 4096U);
  EXPECT_EQ(written.substr(4096, 2), "yz");
}

TEST_F(BufferedFile, tells_the_end_of_the_file_and_failures_by_status) {
  testing::write_file(path, std::string(4096, 'a') + "rest");
  EXPECT_EQ(get(4095), std::string(4095, 'a'));
  EXPECT_EQ(get(2, getbuf_end_of_file), "a?");
  testing::FailingSystem failing(testing::system_call::read, 1, EIO);
  const platform::SystemOverride override(failing);
  state = {};
  EXPECT_EQ(get(1, Status{-EIO}), "?");
}

TEST_F(BufferedFile, that_cannot_be_opened_leaves_the_state_alone) {
  state = {7, 8};
  EXPECT_EQ(OPENBUFF(folder / "missing/a.bin", unit, state), Status{-ENOENT});
  EXPECT_EQ(state.position, 7);
  EXPECT_EQ(state.block_count, 8);
}

TEST_F(BufferedFile, says_by_io_error_that_the_disk_is_full) {
  const int failures = testing::fail_each_call(
      testing::system_call::write, ENOSPC,
      [this] {
        reopen();
        EXPECT_EQ(put(std::string(5000, 'a')), success);
        close();
      },
      [](int) {});
  EXPECT_EQ(failures, 2);
}

TEST_F(BufferedFile, has_a_position_of_its_own) {
  EXPECT_EQ(SETBUFFPOS(unit, 100), success);
  EXPECT_EQ(GETBUFFPOS(unit), 100);
  EXPECT_EQ(SETBUFFPOS(unit, -1), position_refused);
  EXPECT_EQ(GETBUFFPOS(unit), 100);
}

}  // namespace
}  // namespace velmorankite
