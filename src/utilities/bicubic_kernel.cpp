// SPDX-License-Identifier: MIT
#include "utilities/bicubic_kernel.h"

#include <cmath>

#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

template <typename Real>
[[gnu::always_inline]] inline Real row_at(const four_weights<Real>& w, const float* p) noexcept {
  return weighted(w, static_cast<Real>(p[0]), static_cast<Real>(p[1]), static_cast<Real>(p[2]),
                  static_cast<Real>(p[3]));
}

[[gnu::always_inline]] inline std::int32_t four_have_data(const float* p) noexcept {
  return static_cast<std::int32_t>(is_valid(p[0])) & static_cast<std::int32_t>(is_valid(p[1])) &
         static_cast<std::int32_t>(is_valid(p[2])) & static_cast<std::int32_t>(is_valid(p[3]));
}

template <typename Real>
[[gnu::always_inline]] inline void run(const bicubic_rows& rows, const double* u, const double* v,
                                       std::size_t count, float* values, std::int32_t* whole) {
  const float* const a = rows[0];
  const float* const b = rows[1];
  const float* const c = rows[2];
  const float* const d = rows[3];
  for (std::size_t i = 0; i < count; ++i) {
    const auto u_here = static_cast<Real>(u[i]);
    const auto v_here = static_cast<Real>(v[i]);
    const four_weights<Real> along_x = catmull_rom(u_here);
    const auto value = static_cast<float>(weighted(catmull_rom(v_here), row_at(along_x, a + i),
                                                   row_at(along_x, b + i), row_at(along_x, c + i),
                                                   row_at(along_x, d + i)));
    values[i] = value;
    whole[i] = four_have_data(a + i) & four_have_data(b + i) & four_have_data(c + i) &
               four_have_data(d + i) & static_cast<std::int32_t>(!is_on_base_cell(u_here, v_here)) &
               static_cast<std::int32_t>(!std::isnan(value));
  }
}

VELMORANKITE_VECTOR_CLONES void run_single(const bicubic_rows& rows, const double* u,
                                           const double* v, std::size_t count, float* values,
                                           std::int32_t* whole) {
  run<float>(rows, u, v, count, values, whole);
}

VELMORANKITE_VECTOR_CLONES void run_double(const bicubic_rows& rows, const double* u,
                                           const double* v, std::size_t count, float* values,
                                           std::int32_t* whole) {
  run<double>(rows, u, v, count, values, whole);
}

}  // namespace

template <>
void bicubic_run<float>(const bicubic_rows& rows, const double* u, const double* v,
                        std::size_t count, float* values, std::int32_t* whole) {
  run_single(rows, u, v, count, values, whole);
}

template <>
void bicubic_run<double>(const bicubic_rows& rows, const double* u, const double* v,
                         std::size_t count, float* values, std::int32_t* whole) {
  run_double(rows, u, v, count, values, whole);
}

}  // namespace velmorankite
