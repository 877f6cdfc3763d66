# What Doxygen reads of a header. A comment stands for all declarations that follow it without a blank
# line in between; Doxygen wants it before each. Comments in C become comments that it reads.
function indentOf(line) { match(line, /^ */); return RLENGTH }
FNR == 1 { isC = FILENAME ~ /c\/glyphwright\.h$/ }
isC {
  if (/;.*\/\*|,.*\/\*|= [0-9]+ *\/\*/) sub(/\/\*/, "/**<")
  else if (/^ *\/\*/) sub(/\/\*/, "/**")
}
/^ *$/ { doc = ""; print; next }
/^ *\/\/\/ / || /^ *\/\/\/$/ {
  if (!inDoc) { doc = ""; docIndent = indentOf($0) }
  inDoc = 1; doc = doc $0 "\n"; last = $0; print; next
}
/^ *\/\*\*[^<]/ || inBlock {
  if (!inBlock) { doc = ""; docIndent = indentOf($0) }
  inBlock = !/\*\//; doc = doc $0 "\n"; last = "/"; inDoc = 1; print; next
}
{
  starts = doc != "" && !inDoc && indentOf($0) == docIndent && last ~ /[;},]( *\/[\/*].*)?$/ &&
           $0 !~ /^ *(\}|#|\/\/|private:|protected:|public:)/
  if (starts && $0 !~ /\/\*\*<|\/\/\/</) printf "%s", doc
  inDoc = 0; last = $0; print
}
