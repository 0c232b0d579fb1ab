# Warnings and numerics that every target of the project shares, as one interface target.
add_library(velmorankite_options INTERFACE)
target_compile_options(velmorankite_options INTERFACE
  -Wall -Wextra -Wconversion
  # A result must not depend on whether the processor can fuse a product and a sum.
  -ffp-contract=off)
if(VELMORANKITE_WERROR)
  target_compile_options(velmorankite_options INTERFACE -Werror)
endif()
if(VELMORANKITE_SANITIZE)
  target_compile_options(velmorankite_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(velmorankite_options INTERFACE -fsanitize=address,undefined)
endif()
if(VELMORANKITE_FUZZ)
  target_compile_options(velmorankite_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
