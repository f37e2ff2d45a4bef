# What every target of the house shares: warnings as errors, ccache, sanitizers, and the way a folder becomes a library.

option(TARVONI_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(TARVONI_BENCH "Build the benchmarks" ON)
option(TARVONI_FUZZ "Build only the T-SQL front end and its fuzzer (clang)" OFF)

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(tarvoni_options INTERFACE)
target_compile_options(tarvoni_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                                 -Werror)
# GCC 12 sees overlaps in std::string that cannot be (its bug 105651), and takes an empty std::optional for a value that
# was never set; the asan preset and the fuzzer find those that were not.
target_compile_options(tarvoni_options INTERFACE "$<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-maybe-uninitialized>")
target_include_directories(tarvoni_options INTERFACE ${CMAKE_SOURCE_DIR})
find_program(LLD ld.lld)
if(LLD)
  target_link_options(tarvoni_options INTERFACE -fuse-ld=lld)
endif()
if(TARVONI_SANITIZE)
  target_compile_options(tarvoni_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(tarvoni_options INTERFACE -fsanitize=address,undefined)
endif()
if(TARVONI_FUZZ)
  # Coverage for the fuzzer in every object; only the fuzzer itself links its main.
  target_compile_options(tarvoni_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(tarvoni_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# tarvoni_library(NAME [DEPENDENCY...]): a static library of all sources of the current folder and the rooms in it.
function(tarvoni_library name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC tarvoni_options ${ARGN})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE tarvoni_options ${ARGN})
  endif()
endfunction()

# tarvoni_test(NAME [DEPENDENCY...]): a GoogleTest program of all *_test.cpp of the current folder.
function(tarvoni_test name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.cpp)
  if(sources)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE tarvoni_options ${ARGN} GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
  endif()
endfunction()
