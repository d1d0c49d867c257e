# Linked by every target of our own: warnings are errors.
add_library(melvane_warnings INTERFACE)
target_compile_options(melvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wold-style-cast -Wcast-qual -Wformat=2 -Wimplicit-fallthrough
  # g++ 12 sees overlaps in the concatenation of short texts that are not there.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
