# Drawing with the mouse on the real windows. The medians have limits: the program answers 1 when one is passed.
if(MELVANE_WINDOWS)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
  melvane_benchmark(gesture_bench ${CMAKE_CURRENT_LIST_DIR}/gesture_bench.cpp LIBRARIES melvane_windows Qt6::Test)
  target_compile_definitions(gesture_bench PRIVATE MELVANE_SCREEN="${CMAKE_CURRENT_LIST_DIR}/screen.json")
endif()
