# Run as a script: writes OUTPUT, a source file that holds the pages' pieces of WEB as string
# constants. A page from a file cannot load modules, so they become one script: each module a
# function that gives what it exports, each after those that it imports from.
set(modules dom search state style files ../wasm/glyphwright library cards pictures paint panel outline motion svg
  takeaway detail main)

# `import { a } from './b.js';` takes from what `b` gave; `export` marks what a module gives.
set(script "'use strict';\n")
foreach(module IN LISTS modules)
  file(READ ${WEB}/${module}.js content)
  string(REGEX MATCHALL "\nexport (async )?(function|const|class) [A-Za-z_$]+" exports "\n${content}")
  list(TRANSFORM exports REPLACE "^.* " "")
  list(JOIN exports ", " exports)
  string(REGEX REPLACE "(^|\n)export " "\\1" content "${content}")
  string(REGEX REPLACE "(^|\n)import ({[^}]*}) from '[^']*/([a-z]+)\\.js';" "\\1const \\2 = from_\\3;"
    content "${content}")
  # Comments and indentation are for whoever reads the modules.
  string(REGEX REPLACE "(^|\n)[ ]*//[^\n]*" "\\1" content "${content}")
  string(REGEX REPLACE "\n[ \n]+" "\n" content "${content}")
  get_filename_component(name ${module} NAME)
  string(APPEND script "\n// ${name}.js\nconst from_${name} = (() => {\n${content}\nreturn { ${exports} };\n})();\n")
endforeach()

file(READ ${WEB}/gallery.html html)
file(READ ${WEB}/gallery.css css)
set(text "// Made from the files of web/ when the program is built.\n#include \"tools/web_sources.h\"\n\n")
string(APPEND text "namespace glyphwright::cli {\n\n")
foreach(constant IN ITEMS galleryHtml:html galleryCss:css galleryJs:script)
  string(REPLACE ":" ";" constant ${constant})
  list(GET constant 0 name)
  list(GET constant 1 variable)
  string(APPEND text "constexpr std::string_view ${name} = R\"embedded(${${variable}})embedded\";\n")
endforeach()
string(APPEND text "\n}  // namespace glyphwright::cli\n")
file(WRITE ${OUTPUT} "${text}")
