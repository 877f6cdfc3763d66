# The headers that a program may include, and all that these include themselves. Whatever else lies
# beside them is the library's own business.
set(GLYPHWRIGHT_ENTRANCES
  glyphwright/glyphwright.h
  glyphwright/version.h
  glyphwright/c/glyphwright.h
  glyphwright/catalogue/keywords.h
  glyphwright/catalogue/resolve.h
  glyphwright/catalogue/search.h
  glyphwright/presets/ready_made.h)

function(glyphwright_public_headers result source)
  set(waiting ${GLYPHWRIGHT_ENTRANCES})
  set(found)
  while(waiting)
    list(POP_FRONT waiting header)
    list(APPEND found ${header})
    file(STRINGS ${source}/${header} lines REGEX "^#include <glyphwright/")
    list(TRANSFORM lines REPLACE ".*<(.*)>.*" "\\1")
    list(APPEND waiting ${lines})
    list(REMOVE_DUPLICATES waiting)
    list(REMOVE_ITEM waiting ${found})
  endwhile()
  list(SORT found)
  set(${result} ${found} PARENT_SCOPE)
endfunction()
