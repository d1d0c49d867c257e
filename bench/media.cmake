# The media device: memory of a long capture, and the position of a file that plays. With the sound server of tests/sound.
set(media_sound_dir ${CMAKE_CURRENT_LIST_DIR}/../tests/sound)
add_executable(media_bench ${CMAKE_CURRENT_LIST_DIR}/media_bench.cpp ${media_sound_dir}/heard_position.cpp
  ${media_sound_dir}/child_process.cpp ${media_sound_dir}/onset_finder.cpp ${media_sound_dir}/private_sound_server.cpp)
target_include_directories(media_bench PRIVATE ${media_sound_dir})
target_link_libraries(media_bench PRIVATE melvane_engine melvane_warnings)
if(TARGET benchmarks)
  add_dependencies(benchmarks media_bench)
endif()
