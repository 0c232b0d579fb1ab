// The C interface of texts, decoded doubles and 64-bit integers.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "capi/failures.h"
#include "capi/texts.h"
#include "formats/int64_helpers.h"
#include "formats/text_helpers.h"

using namespace velmorankite::capi;
using velmorankite::int64_halves;

namespace {

using halves_operation = int64_halves (*)(int64_halves, int64_halves) noexcept;

// The result may stand where an operand stood.
void on_halves(halves_operation operation, int64_halves a, int64_halves b, std::int32_t* c_high,
               std::int32_t* c_low) {
  const int64_halves c = operation(a, b);
  *c_high = c.high;
  *c_low = c.low;
}

void encode(std::string_view routine, std::int64_t value, std::span<char> digits,
            std::span<char> size) {
  (void)guarded(routine, [&] {
    const velmorankite::size_texts texts =
        velmorankite::ENCODEI8A(value, digits.size(), size.size());
    fill_padded(digits, texts.digits);
    fill_padded(size, texts.size);
    return velmorankite::success;
  });
}

}  // namespace

std::int32_t ISFILEUNIX(const char* name, std::size_t name_length) {
  return static_cast<std::int32_t>(velmorankite::ISFILEUNIX(text_in(name, name_length)));
}

void FTRIM(char* text, std::int32_t* length, std::size_t text_length) {
  *length = 0;
  (void)guarded("FTRIM", [&] {
    const std::string trimmed = velmorankite::FTRIM({text, text_length});
    fill_padded({text, text_length}, trimmed);
    *length = static_cast<std::int32_t>(trimmed.size());
    return velmorankite::success;
  });
}

void FTAIL(const char* text, std::int32_t* length, std::size_t text_length) {
  *length = static_cast<std::int32_t>(velmorankite::FTAIL({text, text_length}));
}

void FUPPER(char* text, const std::int32_t* length, std::size_t text_length) {
  const auto count = static_cast<std::size_t>(std::max(*length, 0));
  velmorankite::FUPPER({text, std::min(count, text_length)});
}

double DECODE_VULCAN_BINARY(const void* bytes, const std::int32_t* order_code) {
  return velmorankite::DECODE_VULCAN_BINARY(static_cast<const std::byte*>(bytes), *order_code);
}

void ADDI8A(const std::int64_t* a, const std::int64_t* b, std::int64_t* c) {
  *c = velmorankite::ADDI8A(*a, *b);
}
void SUBTRACTI8A(const std::int64_t* a, const std::int64_t* b, std::int64_t* c) {
  *c = velmorankite::SUBTRACTI8A(*a, *b);
}
void MULTIPLYI8A(const std::int64_t* a, const std::int64_t* b, std::int64_t* c) {
  *c = velmorankite::MULTIPLYI8A(*a, *b);
}
void DIVIDEI8A(const std::int64_t* a, const std::int64_t* b, std::int64_t* c) {
  *c = velmorankite::DIVIDEI8A(*a, *b);
}
std::int32_t COMPAREI8A(const std::int64_t* a, const std::int64_t* b) {
  return velmorankite::COMPAREI8A(*a, *b);
}

void ADDI8(const std::int32_t* a_high, const std::int32_t* a_low, const std::int32_t* b_high,
           const std::int32_t* b_low, std::int32_t* c_high, std::int32_t* c_low) {
  on_halves(velmorankite::ADDI8, {*a_high, *a_low}, {*b_high, *b_low}, c_high, c_low);
}
void SUBTRACTI8(const std::int32_t* a_high, const std::int32_t* a_low, const std::int32_t* b_high,
                const std::int32_t* b_low, std::int32_t* c_high, std::int32_t* c_low) {
  on_halves(velmorankite::SUBTRACTI8, {*a_high, *a_low}, {*b_high, *b_low}, c_high, c_low);
}
void MULTIPLYI8(const std::int32_t* a_high, const std::int32_t* a_low, const std::int32_t* b_high,
                const std::int32_t* b_low, std::int32_t* c_high, std::int32_t* c_low) {
  on_halves(velmorankite::MULTIPLYI8, {*a_high, *a_low}, {*b_high, *b_low}, c_high, c_low);
}
void DIVIDEI8(const std::int32_t* a_high, const std::int32_t* a_low, const std::int32_t* b_high,
              const std::int32_t* b_low, std::int32_t* c_high, std::int32_t* c_low) {
  on_halves(velmorankite::DIVIDEI8, {*a_high, *a_low}, {*b_high, *b_low}, c_high, c_low);
}
std::int32_t COMPAREI8(const std::int32_t* a_high, const std::int32_t* a_low,
                       const std::int32_t* b_high, const std::int32_t* b_low) {
  return velmorankite::COMPAREI8({*a_high, *a_low}, {*b_high, *b_low});
}

void ENCODEI8A(const std::int64_t* value, char* digits, char* size, std::size_t digits_length,
               std::size_t size_length) {
  encode("ENCODEI8A", *value, {digits, digits_length}, {size, size_length});
}

void ENCODEI8(const std::int32_t* value_high, const std::int32_t* value_low, char* digits,
              char* size, std::size_t digits_length, std::size_t size_length) {
  encode("ENCODEI8", velmorankite::joined({*value_high, *value_low}), {digits, digits_length},
         {size, size_length});
}
