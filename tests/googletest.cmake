# GoogleTest from Debian's sources, for a machine of which no built one is here.
set(googletest /usr/src/googletest/googletest)
add_library(gtest_main STATIC EXCLUDE_FROM_ALL ${googletest}/src/gtest-all.cc ${googletest}/src/gtest_main.cc)
target_include_directories(gtest_main SYSTEM PUBLIC ${googletest}/include PRIVATE ${googletest})
target_compile_options(gtest_main PRIVATE -w)
add_library(GTest::gtest_main ALIAS gtest_main)
set(GTest_FOUND ON)
