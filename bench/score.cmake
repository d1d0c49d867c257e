melvane_benchmark(score_bench ${CMAKE_CURRENT_LIST_DIR}/score_bench.cpp LIBRARIES benchmark::benchmark_main)
melvane_benchmark(column_bench ${CMAKE_CURRENT_LIST_DIR}/column_bench.cpp LIBRARIES benchmark::benchmark_main)
melvane_benchmark(block_bench ${CMAKE_CURRENT_LIST_DIR}/block_bench.cpp LIBRARIES benchmark::benchmark_main)
