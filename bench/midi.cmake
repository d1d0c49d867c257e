melvane_benchmark(midi_bench ${CMAKE_CURRENT_LIST_DIR}/midi_bench.cpp LIBRARIES benchmark::benchmark_main)
