# Run as a script: prints the public headers, one a line.
include(${CMAKE_CURRENT_LIST_DIR}/PublicHeaders.cmake)
glyphwright_public_headers(headers ${CMAKE_CURRENT_LIST_DIR}/..)
foreach(header IN LISTS headers)
  message(${header})
endforeach()
