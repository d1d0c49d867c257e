melvane_benchmark(score_bench ${CMAKE_CURRENT_LIST_DIR}/score_bench.cpp LIBRARIES benchmark::benchmark_main)
melvane_benchmark(column_bench ${CMAKE_CURRENT_LIST_DIR}/column_bench.cpp LIBRARIES benchmark::benchmark_main)
target_include_directories(column_bench PRIVATE ${PROJECT_SOURCE_DIR}/tools)
