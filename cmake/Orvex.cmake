# What every target of the project shares: the warnings, the sanitizers, and the two kinds of
# library. A core library may depend on nothing but other core libraries and what it names as a library
# of the system; this file refuses the rest.

add_library(orvex_warnings INTERFACE)
target_compile_options(orvex_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Woverloaded-virtual -Wnon-virtual-dtor -Wcast-qual -Wcast-align -Wnull-dereference -Wformat=2
  -Wextra-semi -Wundef)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(orvex_warnings INTERFACE
    -Wduplicated-cond -Wduplicated-branches -Wlogical-op
    # GCC 12 warns of overlaps in optimised std::string code that do not exist (GCC bug 105651).
    -Wno-restrict)
endif()

if(ORVEX_WERROR)
  target_compile_options(orvex_warnings INTERFACE -Werror)
endif()

if(ORVEX_COVERAGE)
  add_compile_options(--coverage -fprofile-abs-path)
  add_link_options(--coverage)
endif()
if(ORVEX_SANITIZERS)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  # A null or misaligned pointer ends in a crash that tells as much. Checks of every access for one
  # would take a quarter of the time to compile everything.
  add_compile_options(-fno-sanitize=null,alignment,object-size)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Check each access by a call instead of in line: a tenth less to compile.
    add_compile_options(--param=asan-instrumentation-with-call-threshold=0)
  endif()
endif()
if(ORVEX_FUZZERS)
  # Also report a number from a file that is too large for the integer it is converted to.
  add_compile_options(-fsanitize=fuzzer-no-link,float-cast-overflow)
endif()

# orvex_core_library(<folder> [DEPENDS orvex_x ...] [SYSTEM x ...]): the library of one folder of the
# core. SYSTEM names libraries of the system, for formats that only their own library can write.
function(orvex_core_library folder)
  cmake_parse_arguments(ARG "" "" "DEPENDS;SYSTEM" ${ARGN})
  foreach(dependency IN LISTS ARG_DEPENDS)
    if(NOT dependency MATCHES "^orvex_(model|store|desk|running|recovery|survey|start|observe|questions|editor|reports|study|agreement|tables|commands)$")
      message(FATAL_ERROR "orvex_${folder} is core: it may not depend on ${dependency}")
    endif()
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h)
  add_library(orvex_${folder} STATIC ${sources})
  target_include_directories(orvex_${folder} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(orvex_${folder} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_SYSTEM} orvex_warnings)
  if(ORVEX_TIDY)
    find_program(CLANG_TIDY clang-tidy REQUIRED)
    set_target_properties(orvex_${folder} PROPERTIES CXX_CLANG_TIDY "${CLANG_TIDY};--quiet")
  endif()
endfunction()
