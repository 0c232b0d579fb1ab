// The C interface of single values in byte buffers and of the reversal of bytes.
// SPDX-License-Identifier: MIT
#include "formats/byte_services.h"

#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "capi/failures.h"

using velmorankite::plot_vector;

namespace {

const std::byte* bytes_of(const void* value) {
  return static_cast<const std::byte*>(value);
}

template <typename Value>
std::span<Value> array_of(Value* values, std::int32_t count) {
  return {values, static_cast<std::size_t>(std::max(count, 0))};
}

// An offset below 0 leads to no byte of the buffer.
bool leads_nowhere(std::int32_t position) {
  return position < 0;
}

}  // namespace

void BUF2VAL(const std::int32_t* position, const char* buffer, const std::int32_t* n, void* value) {
  if (!leads_nowhere(*position)) {
    velmorankite::BUF2VAL(static_cast<std::size_t>(*position), bytes_of(buffer), *n,
                          static_cast<std::byte*>(value));
  }
}

void VAL2BUF(std::int32_t* position, char* buffer, const std::int32_t* n, const void* value) {
  if (!leads_nowhere(*position)) {
    auto next = static_cast<std::size_t>(*position);
    velmorankite::VAL2BUF(next, reinterpret_cast<std::byte*>(buffer), *n, bytes_of(value));
    *position = static_cast<std::int32_t>(next);
  }
}

std::int32_t RDPLTVEC(std::int32_t* position, const char* buffer, const std::int32_t* order,
                      const std::int32_t* n, float* x, float* y, std::int32_t* code,
                      std::int32_t* count) {
  // What a call with order 0 works on, for each thread.
  thread_local std::vector<plot_vector> staging;
  return velmorankite::capi::guarded("RDPLTVEC", [&] {
    std::int64_t next = *position;
    std::vector<plot_vector> taken;
    velmorankite::RDPLTVEC(staging, next, bytes_of(buffer), *order, *n, taken);
    *position = static_cast<std::int32_t>(next);
    for (const plot_vector& point : taken) {
      x[*count] = point.x;
      y[*count] = point.y;
      code[*count] = point.code;
      ++*count;
    }
    return velmorankite::success;
  });
}

void CPYBYT(const void* a, void* b) {
  velmorankite::CPYBYT(bytes_of(a), static_cast<std::byte*>(b));
}

void REVBYT2(std::int16_t* v) {
  velmorankite::REVBYT2(*v);
}
void REVBYT4(std::int32_t* v) {
  velmorankite::REVBYT4(*v);
}
void REVBYT(float* v) {
  velmorankite::REVBYT(*v);
}
void REVBYT8(double* v) {
  velmorankite::REVBYT8(*v);
}

std::int32_t REVI2(const void* v) {
  return velmorankite::REVI2(bytes_of(v));
}
std::int32_t REVI4(const void* v) {
  return velmorankite::REVI4(bytes_of(v));
}
float REVR4(const void* v) {
  return velmorankite::REVR4(bytes_of(v));
}
double REVR8(const void* v) {
  return velmorankite::REVR8(bytes_of(v));
}

void CHREVARR2(const std::int32_t* n, std::int16_t* a) {
  velmorankite::CHREVARR2(array_of(a, *n));
}
void CHREVARR4(const std::int32_t* n, std::int32_t* a) {
  velmorankite::CHREVARR4(array_of(a, *n));
}
void CHREVARR(const std::int32_t* n, float* a) {
  velmorankite::CHREVARR(array_of(a, *n));
}
void CHREVARR8(const std::int32_t* n, double* a) {
  velmorankite::CHREVARR8(array_of(a, *n));
}
