# The encoding of a recording in the real window, beside the library in a loop of its own. It has limits and answers by itself.
if(MELVANE_WINDOWS)
  add_executable(encode_bench ${CMAKE_CURRENT_LIST_DIR}/encode_bench.cpp ${CMAKE_CURRENT_LIST_DIR}/encode_stage.cpp)
  target_compile_definitions(encode_bench PRIVATE MELVANE_RESOURCES="${PROJECT_SOURCE_DIR}/resources"
    MELVANE_SCREEN="${CMAKE_CURRENT_LIST_DIR}/screen.json")
  target_link_libraries(encode_bench PRIVATE melvane_windows melvane_warnings ${LAME_LIBRARY})
  add_dependencies(benchmarks encode_bench)
endif()
