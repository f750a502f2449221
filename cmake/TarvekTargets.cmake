# How every target of the project is compiled, and the helper that makes a folder's library.

# The arithmetic must give the same last digit on every compiler: a*b+c is never fused and no identity of real numbers
# is assumed. tests/coordmath/test_Determinism.cpp fails if these options get lost.
add_library(tarvek_options INTERFACE)
target_compile_options(tarvek_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -ffp-contract=off
  $<$<BOOL:${TARVEK_WERROR}>:-Werror>)
# GCC 12 warns of overlapping copies in std::string where there are none (its bug 105651, mended in GCC 13).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(tarvek_options INTERFACE -Wno-restrict)
endif()
target_include_directories(tarvek_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

# tarvek_library(NAME SOURCES ... LINK ...): the static library tarvek_NAME of the mod files of one folder. LINK names
# only libraries further down; tests/structure/check_includes.py holds the includes to the same order.
function(tarvek_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(tarvek_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(tarvek_${name} PUBLIC tarvek_options ${ARG_LINK})
endfunction()
