melvane_benchmark(setup_bench ${CMAKE_CURRENT_LIST_DIR}/setup_bench.cpp LIBRARIES benchmark::benchmark_main)
target_include_directories(setup_bench PRIVATE ${PROJECT_SOURCE_DIR}/tools)
