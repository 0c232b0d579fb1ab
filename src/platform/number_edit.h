// Numbers in fields of a fixed width, as the F and I edits of Fortran print them.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>

namespace velmorankite::platform {

// F<width>.<decimals>, width at least 1: right-justified, correctly rounded from the binary value
// (a tie goes to the even digit), a minus sign kept on a negative value that rounds to zero, the
// zero ahead of the point left out where the field has no room for it, and stars where the number
// does not fit. NaN and infinities print as "NaN", "Infinity" or, in a narrower field, "Inf",
// right-justified.
[[nodiscard]] std::string fixed_edit(double value, int width, int decimals);

// I<width>: right-justified, stars where the number does not fit.
[[nodiscard]] std::string integer_edit(std::int64_t value, int width);

}  // namespace velmorankite::platform
