if(TARGET wayfern_ui)
  add_executable(wayfern_bench_view bench_view.cpp journeygen.h quietstdout.h)
  target_link_libraries(wayfern_bench_view PRIVATE wayfern_ui)
endif()
