# SPDX-License-Identifier: GPL-3.0-or-later
# What every target of the project shares, and how a room and its tests are declared.

add_library(comfortics_options INTERFACE)
target_compile_features(comfortics_options INTERFACE cxx_std_20)
target_compile_options(
  comfortics_options
  INTERFACE
    # Results are exact to the last bit as written: no fused multiply-add, ever.
    -ffp-contract=off
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
    -Wcast-qual -Wformat=2 -Wimplicit-fallthrough
    # At -O3 g++ 12 takes what the library's strings do among themselves for overlapping copies.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${COMFORTICS_WERROR}>:-Werror>)
if(COMFORTICS_SANITIZE)
  target_compile_options(comfortics_options INTERFACE -fsanitize=${COMFORTICS_SANITIZE} -fno-omit-frame-pointer
                                                      -fno-sanitize-recover=all
    # g++ 12 loses sight of what std::variant holds between the sanitizers' own instructions.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(comfortics_options INTERFACE -fsanitize=${COMFORTICS_SANITIZE})
endif()
if(COMFORTICS_HARDENED)
  # Nothing here touches arithmetic.
  target_compile_options(comfortics_options INTERFACE -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  target_link_options(comfortics_options INTERFACE -Wl,-z,relro,-z,now)
endif()
if(COMFORTICS_FUZZ)
  target_compile_options(comfortics_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(COMFORTICS_COVERAGE)
  target_compile_options(comfortics_options INTERFACE --coverage)
  target_link_options(comfortics_options INTERFACE --coverage)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
# The rooms go into a shared library as well as into programs, and it gives out what its headers say, no more.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# comfortics_room(<room> [UNITY] SOURCES ... LINKS ...): one library per folder of src/. LINKS names the rooms that this
# one may include: tools/check_rooms.py finds an include from any other, and what it calls there does not link. UNITY
# says that the sources share no nameless name: the sanitizers compile them as one.
function(comfortics_room room)
  cmake_parse_arguments(arg "UNITY" "" "SOURCES;LINKS" ${ARGN})
  add_library(comfortics_${room} STATIC ${arg_SOURCES})
  add_library(comfortics::${room} ALIAS comfortics_${room})
  target_include_directories(comfortics_${room} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(comfortics_${room} PUBLIC ${arg_LINKS} PRIVATE comfortics_options)
  target_compile_features(comfortics_${room} PUBLIC cxx_std_20)
  if(arg_UNITY AND COMFORTICS_SANITIZE)
    comfortics_unity(comfortics_${room})
  endif()
endfunction()

# comfortics_vectorise(<source>...): the loops over many points, which are worth the longer compilation.
function(comfortics_vectorise)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT COMFORTICS_SANITIZE AND NOT COMFORTICS_COVERAGE)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O3)
  endif()
endfunction()

# comfortics_unity(<target>): compiled as one source where COMFORTICS_UNITY asks for it, for targets whose sources all
# read the same large headers. Their nameless namespaces then are one, too.
function(comfortics_unity target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${COMFORTICS_UNITY} UNITY_BUILD_BATCH_SIZE 0)
endfunction()

# comfortics_install_program(<target>): a program and Limits.Index lie in one folder. That is bin/, except in a Debian
# package, whose bin/ takes programs only: there it is lib/comfortics, and bin/ links to it.
function(comfortics_install_program target)
  install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT folder)
  install(TARGETS ${target} RUNTIME DESTINATION lib/comfortics COMPONENT debian EXCLUDE_FROM_ALL)
  set(link ${CMAKE_BINARY_DIR}/links/${target})
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
  file(CREATE_LINK ../lib/comfortics/${target} ${link} SYMBOLIC)
  install(FILES ${link} DESTINATION bin COMPONENT debian EXCLUDE_FROM_ALL)
endfunction()

# comfortics_test(<room> SOURCES ... LINKS ...): one test executable per room, linking that room only.
function(comfortics_test room)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${room}_tests ${arg_SOURCES})
  target_include_directories(${room}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
  target_link_libraries(${room}_tests PRIVATE ${arg_LINKS} GTest::gtest GTest::gtest_main comfortics_options)
  gtest_discover_tests(${room}_tests TEST_PREFIX ${room}/ DISCOVERY_TIMEOUT 60)
endfunction()
