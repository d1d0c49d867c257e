melvane_benchmark(setup_bench ${CMAKE_CURRENT_LIST_DIR}/setup_bench.cpp LIBRARIES benchmark::benchmark_main)
