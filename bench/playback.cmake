# A playback during which everything is opened, switched and moved. It has a limit and answers by itself.
if(MELVANE_WINDOWS)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
  set(playback_dir ${CMAKE_CURRENT_LIST_DIR})
  add_executable(playback_bench ${playback_dir}/playback_bench.cpp ${playback_dir}/playback_gestures.cpp
    ${playback_dir}/playback_stage.cpp ${PROJECT_SOURCE_DIR}/src/app/program.cpp)
  target_compile_definitions(playback_bench PRIVATE MELVANE_RESOURCES="${PROJECT_SOURCE_DIR}/resources"
    MELVANE_SCREEN="${playback_dir}/screen.json")
  target_link_libraries(playback_bench PRIVATE melvane_windows melvane_warnings Qt6::Test)
  add_dependencies(benchmarks playback_bench)
endif()
