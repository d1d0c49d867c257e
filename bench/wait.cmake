if(MELVANE_WINDOWS)
  melvane_benchmark(wait_bench ${CMAKE_CURRENT_LIST_DIR}/wait_bench.cpp LIBRARIES melvane_windows)
endif()
