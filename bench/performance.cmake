melvane_benchmark(performance_bench ${CMAKE_CURRENT_LIST_DIR}/performance_bench.cpp LIBRARIES benchmark::benchmark_main)
