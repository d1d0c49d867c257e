# A key of the machine on the real keyboard window, and a metronome, a capture and a replay in real time. Both have limits and
# answer 1 when one is passed; the second prints words of its own.
if(MELVANE_WINDOWS)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
  set(keyboard_dir ${CMAKE_CURRENT_LIST_DIR})
  melvane_benchmark(keyboard_bench ${keyboard_dir}/keyboard_bench.cpp ${keyboard_dir}/keyboard_stage.cpp
    LIBRARIES melvane_windows Qt6::Test)
  add_executable(live_bench ${keyboard_dir}/live_bench.cpp ${keyboard_dir}/keyboard_stage.cpp)
  target_compile_definitions(live_bench PRIVATE MELVANE_RESOURCES="${PROJECT_SOURCE_DIR}/resources")
  target_link_libraries(live_bench PRIVATE melvane_windows melvane_warnings Qt6::Test)
  add_dependencies(benchmarks live_bench)
  foreach(program keyboard_bench live_bench)
    target_compile_definitions(${program} PRIVATE MELVANE_SCREEN="${keyboard_dir}/screen.json")
  endforeach()
endif()
