// Refusals of a header that is not sound, shared by the readers of all formats.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/status.h"

namespace velmorankite {

inline constexpr Status header_too_short{-2901};   // the file ends inside its header
inline constexpr Status number_unreadable{-2902};  // no number stands where one must
inline constexpr Status counts_unsound{-2903};     // a count of cells below 1 or too large
inline constexpr Status cell_size_unsound{-2904};  // zero, negative or not finite
inline constexpr Status limits_unsound{-2905};     // a limit that is not finite
inline constexpr Status cells_missing{-2906};      // the file is too short for its counts
inline constexpr Status table_too_long{-2907};     // more entries than the reader or the file holds
inline constexpr Status pointer_outside{-2908};    // a table points outside the file
inline constexpr Status layout_unsupported{-2909};  // cells of a type that cannot be converted
inline constexpr Status lattice_irregular{-2910};   // coordinates that are not evenly spaced

}  // namespace velmorankite
