melvane_benchmark(key_bench ${CMAKE_CURRENT_LIST_DIR}/key_bench.cpp LIBRARIES benchmark::benchmark_main)
