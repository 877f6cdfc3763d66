# What every target of this project is compiled with.
#
# -ffp-contract=off: a fused multiply-add rounds once where the source rounds twice, and each last
# place can move a pixel. Pictures are the same with every compiler and at every optimisation level.
function(glyphwright_target target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  target_compile_options(${target} PRIVATE
    $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:
      -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wshadow>
    # gcc 12 sees an overlap in std::string's own operator+ and, at -O2, how a std::optional that
    # holds nothing is destroyed.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:
      -Wno-restrict $<$<NOT:$<CONFIG:Release>>:-Wno-maybe-uninitialized>>
    $<$<AND:$<BOOL:${GLYPHWRIGHT_WERROR}>,$<CXX_COMPILER_ID:GNU,Clang,AppleClang>>:-Werror>)
  if(GLYPHWRIGHT_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${GLYPHWRIGHT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${GLYPHWRIGHT_SANITIZE})
    if(GLYPHWRIGHT_FUZZERS)
      # What guides the fuzzer to new paths through the code.
      target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
  endif()
endfunction()

# Reading the standard library's headers takes most of the time of most sources. As a part of another
# project, which may have its own ideas, and in the debug preset, every source stands on its own.
function(glyphwright_precompile target)
  if(PROJECT_IS_TOP_LEVEL)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# One program for each source file given, named after it.
function(glyphwright_programs)
  cmake_parse_arguments(arg "" "PREFIX" "SOURCES;LIBRARIES" ${ARGN})
  foreach(source IN LISTS arg_SOURCES)
    cmake_path(GET source STEM name)
    add_executable(${arg_PREFIX}${name} ${source})
    glyphwright_target(${arg_PREFIX}${name})
    target_link_libraries(${arg_PREFIX}${name} PRIVATE ${arg_LIBRARIES})
  endforeach()
endfunction()
