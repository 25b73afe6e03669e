# Nearly every source takes in the same few headers of the library, which cost more time than the source itself: they
# are compiled once, before everything else. A source names what it uses all the same; the headers are checked alone.
set(KESTRUM_COMMON_HEADERS
  <algorithm> <cstdint> <functional> <map> <memory> <optional> <string> <string_view> <utility> <vector>)

# One library per folder of src/; a folder's sources are whatever .cpp files it holds.
function(kestrum_folder name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(NOT sources)
    add_library(kestrum_${name} INTERFACE)
    target_link_libraries(kestrum_${name} INTERFACE ${ARGN})
  else()
    add_library(kestrum_${name} STATIC ${sources})
    target_include_directories(kestrum_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(kestrum_${name} PUBLIC ${ARGN})
    target_precompile_headers(kestrum_${name} REUSE_FROM kestrum_platform)
  endif()
endfunction()

# Tests compile twice as fast without optimisation, and their time is spent in what they test. The first of them
# compiles the common headers anew, as those belong to one kind of optimisation.
function(kestrum_quick_to_compile target)
  target_compile_options(${target} PRIVATE -O0)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  if(target STREQUAL "contract")
    target_precompile_headers(${target} PRIVATE ${KESTRUM_COMMON_HEADERS} <doctest/doctest.h>)
  else()
    target_precompile_headers(${target} REUSE_FROM contract)
  endif()
endfunction()

# One test program per folder of tests/unit: unit_<name>, linked with the libraries given.
function(kestrum_unit_tests name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  if(sources)
    add_executable(unit_${name} ${sources})
    target_link_libraries(unit_${name} PRIVATE test_main ${ARGN})
    kestrum_quick_to_compile(unit_${name})
    add_test(NAME unit_${name} COMMAND unit_${name})
  endif()
endfunction()
