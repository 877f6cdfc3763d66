# Installs the library, then configures, builds and runs the consumers against the installation.
# Needs SOURCE (the repository), BUILD (a configured build of it), WORK, SHARED, COMPILER, NM.
function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${WORK}/prefix ${WORK}/consumer)
if(SHARED)
  # The other kind of library needs a build of its own, which takes the same objects as this one where
  # ccache remembers them.
  set(BUILD ${WORK}/build)
  run(${CMAKE_COMMAND} -S ${SOURCE} -B ${BUILD} -G Ninja -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON -DGLYPHWRIGHT_TOOLS=OFF
    -DGLYPHWRIGHT_TESTS=OFF -DGLYPHWRIGHT_BENCH=OFF -DGLYPHWRIGHT_EXAMPLES=OFF)
  run(${CMAKE_COMMAND} --build ${BUILD})
endif()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -S ${SOURCE}/tests/consumer -B ${WORK}/consumer -G Ninja
  -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Release
  -DCMAKE_PREFIX_PATH=${WORK}/prefix)
run(${CMAKE_COMMAND} --build ${WORK}/consumer)
run(${WORK}/consumer/one_icon)
run(${WORK}/consumer/pictures)
run(${WORK}/consumer/paths_only)

# Whoever calls one builder carries one drawing: the linker must have dropped the others.
if(NOT SHARED AND NM)
  execute_process(COMMAND ${NM} -C ${WORK}/consumer/one_icon OUTPUT_VARIABLE symbols
    COMMAND_ERROR_IS_FATAL ANY)
  if(NOT symbols MATCHES "UIBezierPath::facebookLogo")
    message(FATAL_ERROR "the consumer lost the icon that it calls")
  endif()
  if(symbols MATCHES "UIBezierPath::(swipeLeft|coffee|vantelTextLogoPath|performSelector)")
    message(FATAL_ERROR "the consumer carries artwork that it never calls: ${CMAKE_MATCH_0}")
  endif()
endif()

# A program that only builds and transforms paths carries nothing of what draws them.
if(NOT SHARED)
  file(SIZE ${WORK}/consumer/nothing nothing)
  file(SIZE ${WORK}/consumer/paths_only paths_only)
  math(EXPR more "${paths_only} - ${nothing}")
  if(more GREATER 40960)
    message(FATAL_ERROR "a program of paths carries ${more} bytes more than an empty one")
  endif()
endif()
