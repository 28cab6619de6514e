# Small helpers that keep the component CMake files short.

# The MinGW runtime DLLs go beside our binaries: every DLL of the suite
# shares one C++ runtime, as MinGW programs that pass C++ objects between
# DLLs must.
function(zv_copy_mingw_runtime)
  set(gccdir /usr/lib/gcc/${ZV_TRIPLET}/12-posix)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(gcc_s libgcc_s_seh-1.dll)
  else()
    set(gcc_s libgcc_s_dw2-1.dll)
  endif()
  foreach(dll ${gccdir}/libstdc++-6.dll ${gccdir}/${gcc_s} /usr/${ZV_TRIPLET}/lib/libwinpthread-1.dll)
    file(COPY ${dll} DESTINATION ${CMAKE_BINARY_DIR}/bin)
  endforeach()
endfunction()

# GoogleTest from Debian's sources, built by whichever compiler this tree uses.
macro(zv_add_googletest)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(BUILD_GMOCK ON CACHE BOOL "" FORCE)
  set(gtest_disable_pthreads OFF CACHE BOOL "" FORCE)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  foreach(t gtest gtest_main gmock gmock_main)
    if(TARGET ${t})
      target_compile_options(${t} PRIVATE -w)
    endif()
  endforeach()
  include(GoogleTest)
endmacro()

# A library of code that needs no windows.h: built into the DLLs on the
# Windows side and tested natively under the sanitizers.
function(zv_add_portable name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

# A suite or library DLL under its exact file name (no "lib" prefix).
function(zv_add_dll name)
  cmake_parse_arguments(A "" "OUTPUT_NAME" "SOURCES;LINK;DEFINE" ${ARGN})
  add_library(${name} SHARED ${A_SOURCES})
  set_target_properties(${name} PROPERTIES PREFIX "" OUTPUT_NAME ${A_OUTPUT_NAME}
    IMPORT_PREFIX "" IMPORT_SUFFIX ".dll.a")
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  if(A_DEFINE)
    target_compile_definitions(${name} PRIVATE ${A_DEFINE})
  endif()
  if(A_LINK)
    target_link_libraries(${name} ${A_LINK})
  endif()
endfunction()

# A GoogleTest program. Under Wine each test case runs as its own process,
# listed when ctest starts (the program is not run at build time).
function(zv_add_test name)
  cmake_parse_arguments(A "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${A_SOURCES})
  target_link_libraries(${name} PRIVATE ${A_LINK} gmock gtest_main)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/bin PROPERTIES TIMEOUT 120)
endfunction()

# A fuzz target over a portable library. With ZV_FUZZ it is a libFuzzer
# program; in the plain native build the same target is linked with the
# replay main and runs every seed of fuzz/seeds/<name>/ as a test.
function(zv_add_fuzzer name)
  cmake_parse_arguments(A "" "" "SOURCES;LINK" ${ARGN})
  set(seeds ${CMAKE_SOURCE_DIR}/fuzz/seeds/${name})
  file(GLOB seed_files ${seeds}/*)
  if(NOT seed_files)
    message(FATAL_ERROR "fuzz target ${name} has no seeds in ${seeds}")
  endif()
  if(ZV_FUZZ)
    add_executable(${name} ${A_SOURCES})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer,address,undefined)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer,address,undefined)
  else()
    add_executable(${name} ${A_SOURCES} $<TARGET_OBJECTS:fuzz_replay_main>)
    add_test(NAME fuzz_seeds.${name} COMMAND ${name} ${seeds})
    set_tests_properties(fuzz_seeds.${name} PROPERTIES LABELS fuzz TIMEOUT 60)
  endif()
  target_link_libraries(${name} PRIVATE ${A_LINK})
endfunction()

include(${CMAKE_CURRENT_LIST_DIR}/ZvSubdirs.cmake)
