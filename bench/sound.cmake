# The benches of the sound. They share the sound server and the listening ear of tests/sound.
set(sound_bench_dir ${CMAKE_CURRENT_LIST_DIR})
set(sound_tools_dir ${sound_bench_dir}/../tests/sound)

add_library(sound_bench STATIC ${sound_bench_dir}/sound_notes.cpp ${sound_bench_dir}/sound_notes.h
  ${sound_tools_dir}/child_process.cpp ${sound_tools_dir}/onset_finder.cpp ${sound_tools_dir}/private_sound_server.cpp)
target_include_directories(sound_bench PUBLIC ${sound_bench_dir} ${sound_tools_dir})
target_link_libraries(sound_bench PUBLIC melvane_engine PRIVATE melvane_warnings)

foreach(program sound_spacing sound_offline)
  add_executable(${program} ${sound_bench_dir}/${program}.cpp)
  target_link_libraries(${program} PRIVATE sound_bench melvane_warnings)
  if(TARGET benchmarks)
    add_dependencies(benchmarks ${program})
  endif()
endforeach()
