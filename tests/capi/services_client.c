/* A client of the byte, text and buffered file services, against the installed library alone.
 * SPDX-License-Identifier: MIT */
#include "client_checks.h"

/* 5000 bytes go out in two blocks and come back; a value goes through the buffer by itself. */
static void bytes_go_through_a_buffer(void) {
  static char buffer[8192], bytes[5000], back[5000];
  const int32_t count = sizeof bytes, reversed = -8, none = 0;
  const int64_t start = 4090, nowhere = -1;
  const double value = 3.25;
  double again = 0;
  int32_t unit = 0, position = 7, blocks = 7, status = 7;
  for (int i = 0; i < count; ++i) {
    bytes[i] = (char)('a' + i % 23);
  }
  OPENBUFF("blocks", &unit, &position, &blocks, &status, 6);
  check(status == 0 && unit >= 101 && position == 0 && blocks == 0, "a file is opened");
  VAL2BUF(&position, buffer, &reversed, &value);
  PUTBUF(&count, bytes, &unit, &position, &blocks, buffer, &status);
  check(status == 0 && blocks == 1 && position == 912, "one block is written, the rest pending");
  PUTBUF(&none, bytes, &unit, &position, &blocks, buffer, &status);
  check(status == -1, "no bytes are no success");
  check(CLOSBUFF(&unit, &position, &blocks, buffer) == 0 && position == 0 && blocks == 0,
        "and the file closed");
  PUTBUF(&count, bytes, &unit, &position, &blocks, buffer, &status);
  check(status == VELMORANKITE_FILE_FAILED, "a closed unit takes nothing");

  OPENBUFF("blocks", &unit, &position, &blocks, &status, 6);
  GETBUF(&reversed, back, &unit, &position, &blocks, buffer, &status);
  check(status == 0 && blocks == 0, "a count below 0 takes nothing");
  const int32_t eight = 8;
  GETBUF(&eight, back, &unit, &position, &blocks, buffer, &status);
  BUF2VAL(&none, back, &reversed, &again);
  check(status == 0 && again == value && REVR8(back) == value, "a reversed value comes back");
  GETBUF(&count, back, &unit, &position, &blocks, buffer, &status);
  check(status == 0 && memcmp(bytes, back, sizeof bytes) == 0, "and so do the bytes");
  check(GETBUFFPOS(&unit) == 8192, "the file has two blocks");
  GETBUF(&count, back, &unit, &position, &blocks, buffer, &status);
  check(status == -1, "a third there is not");
  SETBUFFPOS(&unit, &nowhere, &status);
  check(status == -1 && GETBUFFPOS(&unit) == 8192, "there is nothing ahead of a file");
  SETBUFFPOS(&unit, &start, &status);
  char line[8];
  int32_t length = 0;
  RDLINE(&unit, line, &length, sizeof line);
  check(status == 0 && length == 8 && memcmp(line, bytes + 4082, 8) == 0, "lines from anywhere");
  CLOSBUFF(&unit, &position, &blocks, buffer);
  OPENBUFF("none/blocks", &unit, &position, &blocks, &status, 11);
  check(status == -2, "no folder is told by the system's number");
}

static void bytes_are_reversed(void) {
  const char words[] = "\x80\0\x3f\x80\0\0";
  int16_t shorts[2] = {0x0102, 0x0304};
  float one[1] = {1.0F};
  const int32_t two = 2, nothing = -2, machine = 1;
  CHREVARR2(&two, shorts);
  check(shorts[0] == 0x0201 && shorts[1] == 0x0403, "each value is reversed");
  CHREVARR2(&nothing, shorts);
  REVBYT2(&shorts[1]);
  check(shorts[0] == 0x0201 && shorts[1] == 0x0304, "or one alone, or none");
  check(REVI2(words) == -32768 && REVR4(words + 2) == 1.0F, "values come reversed");
  REVBYT(one);
  CPYBYT(one, shorts);
  check(memcmp(shorts, words + 2, 4) == 0, "words are copied as they are");

  /* Of three points in one place the first and the last are kept. */
  float points[9] = {1, 2, 0, 1, 2, 0, 1, 2, 0}, x[4], y[4];
  const int32_t draw = 3, three = 3;
  int32_t code[4], position = 0, count = 1;
  for (int i = 0; i < 3; ++i) {
    memcpy(&points[3 * i + 2], &draw, 4);
  }
  check(RDPLTVEC(&position, (const char*)points, &machine, &three, x, y, code, &count) == 0 &&
            position == 36 && count == 3 && x[1] == 1 && y[2] == 2 && code[2] == 3,
        "plot vectors that draw nothing are left out");
}

static void texts_and_large_integers_serve(void) {
  char text[8] = {' ', ' ', 'a', 'b', '\0', 'c', ' ', ' '}, digits[12], size[12];
  const int32_t three = 3, little = 0, high = 1, low = -1, zero = 0, one = 1;
  const int64_t bytes = 1536, divisor = 0, minus = -7;
  const char half[8] = {0, 0, 0, 0, 0, 0, (char)0xe0, 0x3f};
  int32_t length = 0, sum_high = 0, sum_low = 0;
  int64_t result = 1;
  FTAIL(text, &length, sizeof text);
  check(length == 6, "a NUL inside a text counts");
  FTRIM(text, &length, sizeof text);
  check(length == 4 && memcmp(text, "ab c    ", 8) == 0, "a text is moved to the front");
  FUPPER(text, &three, sizeof text);
  check(memcmp(text, "AB c", 4) == 0, "three characters are made upper case");
  check(DECODE_VULCAN_BINARY(half, &little) == 0.5, "a double is decoded");
  check(ISFILEUNIX("none", 4) == -1, "a missing file has no line ends");
  ADDI8(&high, &low, &zero, &one, &sum_high, &sum_low);
  check(sum_high == 2 && sum_low == 0, "the carry goes into the upper half");
  check(COMPAREI8(&high, &low, &high, &one) == 1 && COMPAREI8A(&minus, &bytes) == -1,
        "the lower half has no sign");
  DIVIDEI8A(&bytes, &divisor, &result);
  check(result == 0, "nothing is divided by 0");
  ENCODEI8A(&bytes, digits, size, sizeof digits, sizeof size);
  check(memcmp(digits, "1536        ", 12) == 0 && memcmp(size, "1.50 KB     ", 12) == 0,
        "bytes have words");
}

int main(void) {
  bytes_go_through_a_buffer();
  bytes_are_reversed();
  texts_and_large_integers_serve();
  return failures == 0 ? 0 : 1;
}
