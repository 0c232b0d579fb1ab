// The C interface of the splines.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <cstddef>
#include <span>

#include "utilities/cubic_spline.h"
#include "utilities/interval_search.h"
#include "utilities/tension_spline.h"

namespace {

using velmorankite::cubic_node;
using velmorankite::tension_node;

// Where the searches of this thread ended, to begin the next ones there.
struct search_positions {
  std::int32_t cubic = 1;  // of CUBVAL, CUBINT, CUBINT2 and INTERV
  std::int32_t mirror = 1;
  std::int32_t tension = 1;
};

search_positions& positions() noexcept {
  thread_local search_positions kept;
  return kept;
}

// The first n entries of a caller's table; none where n is below 1.
template <typename Entry>
std::span<Entry> table(Entry* first, std::int32_t n) noexcept {
  return {first, n > 0 ? static_cast<std::size_t>(n) : 0};
}

// A node is nothing but its doubles, so that a table is used where it lies.
template <typename Node>
std::span<Node> nodes_in(double* words, std::int32_t n) noexcept {
  return table(reinterpret_cast<Node*>(words), n);
}

template <typename Node>
std::span<const Node> nodes_in(const double* words, std::int32_t n) noexcept {
  return table(reinterpret_cast<const Node*>(words), n);
}

}  // namespace

void CUBSPL(const std::int32_t* n, const double* tau, double* c, const std::int32_t* begin_code,
            const std::int32_t* end_code) {
  velmorankite::CUBSPL(table(tau, *n), nodes_in<cubic_node>(c, *n), *begin_code, *end_code);
}

double CUBVAL(const std::int32_t* n, const double* tau, const double* c, const double* x) {
  return velmorankite::CUBVAL(table(tau, *n), nodes_in<cubic_node>(c, *n), *x, positions().cubic);
}

double CUBINT(const std::int32_t* n, const double* tau, const double* c, const double* a,
              const double* b) {
  return velmorankite::CUBINT(table(tau, *n), nodes_in<cubic_node>(c, *n), *a, *b,
                              positions().cubic);
}

double CUBINT2(const double* tau, const double* c, const std::int32_t* n, const double* a,
               const double* b) {
  return velmorankite::CUBINT2(table(tau, *n), nodes_in<cubic_node>(c, *n), *a, *b,
                               positions().cubic);
}

void INTERV(const double* xt, const std::int32_t* count, const double* x, std::int32_t* left,
            std::int32_t* flag) {
  const velmorankite::table_place place =
      velmorankite::INTERV(table(xt, *count), *x, positions().cubic);
  *left = place.left;
  *flag = place.flag;
}

void RINTERV(const double* xt, const std::int32_t* count, const double* x, std::int32_t* left,
             std::int32_t* flag) {
  const velmorankite::table_place place =
      velmorankite::RINTERV(table(xt, *count), *x, positions().mirror);
  *left = place.left;
  *flag = place.flag;
}

void TCUBSPL(const std::int32_t* n, const double* x, double* c, const double* first_slope,
             const double* last_slope, const std::int32_t* slope_switch, const double* tension,
             std::int32_t* error) {
  *error = velmorankite::TCUBSPL(table(x, *n), nodes_in<tension_node>(c, *n), *first_slope,
                                 *last_slope, *slope_switch, *tension)
               .code;
}

double TCUBVAL(const std::int32_t* n, const double* x, const double* c, const double* t) {
  return velmorankite::TCUBVAL(table(x, *n), nodes_in<tension_node>(c, *n), *t,
                               positions().tension);
}
