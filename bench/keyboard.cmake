# A key of the machine on the real keyboard window. Median and 99th percentile have limits: the program answers 1 when one is passed.
if(MELVANE_WINDOWS)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
  melvane_benchmark(keyboard_bench ${CMAKE_CURRENT_LIST_DIR}/keyboard_bench.cpp LIBRARIES melvane_windows Qt6::Test)
  target_compile_definitions(keyboard_bench PRIVATE MELVANE_SCREEN="${CMAKE_CURRENT_LIST_DIR}/screen.json")
endif()
