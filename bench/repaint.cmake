# The full repaint of the tablet. Its medians have limits, so it answers by itself and is not part of the table.
if(MELVANE_WINDOWS)
  add_executable(repaint_bench ${CMAKE_CURRENT_LIST_DIR}/repaint_bench.cpp)
  target_link_libraries(repaint_bench PRIVATE melvane_windows melvane_warnings)
  add_dependencies(benchmarks repaint_bench)
endif()
