# One interface target with the options that every target shares, and the functions that
# declare a folder's library and its test program.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(cantorix_options INTERFACE)
target_compile_options(cantorix_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Werror
  # The same digits on every machine: no contraction into fused operations.
  -ffp-contract=off
  # The warning of g++ 12 about texts joined with + is a false one.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_definitions(cantorix_options INTERFACE _FILE_OFFSET_BITS=64)
# What is shipped watches its stack and its copies, and maps its tables of calls read-only.
target_compile_options(cantorix_options INTERFACE $<$<CONFIG:Release>:-fstack-protector-strong>)
target_compile_definitions(cantorix_options INTERFACE $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
target_link_options(cantorix_options INTERFACE $<$<CONFIG:Release>:-Wl,-z,relro,-z,now>)
if(CANTORIX_SANITIZERS)
  target_compile_options(cantorix_options INTERFACE
    -fsanitize=${CANTORIX_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(cantorix_options INTERFACE -fsanitize=${CANTORIX_SANITIZERS})
  # Function multiversioning resolves symbols before the sanitizers are ready.
  target_compile_definitions(cantorix_options INTERFACE CANTORIX_NO_CLONES)
endif()

# What the tests' own sources are compiled with behind these options. Their code is long, runs once
# and is no part of the product: neither optimising it nor watching it for undefined behaviour is
# worth half of its compile time. What they call is watched by both sanitizers all the same.
add_library(cantorix_test_options INTERFACE)
target_compile_options(cantorix_test_options INTERFACE -O0)
if(CANTORIX_SANITIZERS MATCHES "undefined")
  target_compile_options(cantorix_test_options INTERFACE -fno-sanitize=undefined)
endif()

# cantorix_library(NAME SOURCES file... [LINKS library...]): the static library of one folder.
# LINKS names the folders it may include; tools/check_includes.sh holds the same direction.
function(cantorix_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(cantorix_${name} STATIC ${ARG_SOURCES})
  target_include_directories(cantorix_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(cantorix_${name} PUBLIC ${ARG_LINKS} PRIVATE cantorix_options)
endfunction()

# cantorix_test(NAME SOURCES file... LINKS library... [SECONDS n]): the test program of one folder.
# Of several at a time those with the most seconds begin first.
function(cantorix_test name)
  cmake_parse_arguments(ARG "" "SECONDS" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_SECONDS)
    set(ARG_SECONDS 0)
  endif()
  add_executable(test_${name} ${ARG_SOURCES})
  target_link_libraries(test_${name} PRIVATE ${ARG_LINKS} cantorix_test_support cantorix_options
                        cantorix_test_options GTest::gmock GTest::gtest_main)
  gtest_discover_tests(test_${name} DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 300 COST ${ARG_SECONDS})
endfunction()
