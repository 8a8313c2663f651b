# How everything here is compiled: language, warnings, sanitizers, coverage.
include(GNUInstallDirs)

set(KESTXML_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")
option(KESTXML_COVERAGE "Instrument for gcov" OFF)
option(KESTXML_WERROR "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Applies the project's warnings and instrumentation to one target of its own.
function(kest_apply_policy target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                           -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast)
  # What the library exports it calls itself without the detour for other libraries' replacements,
  # and can inline.
  target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  # GCC 12 finds overlaps inside std::string that can't be (its bug 105651, mended in 13).
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(KESTXML_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(KESTXML_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${KESTXML_SANITIZE}
                                             -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # Instrumented, GCC takes members of std::regex and std::function for uninitialised.
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
      target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
    endif()
    target_link_options(${target} PRIVATE -fsanitize=${KESTXML_SANITIZE})
  endif()
  if(KESTXML_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} PRIVATE --coverage)
  endif()
endfunction()
