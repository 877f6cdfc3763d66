# What Doxygen reads of a header. A comment stands for all declarations that follow it without a blank
# line in between; Doxygen wants it before each. Comments in C, and those behind cases, become comments
# that it reads; tables of cases become the classes that they make; every type names the examples that
# use it, which the file $EXAMPLES lists ("type program", any number of lines), with the first's picture;
# only a type within another may have none.
function indentOf(line) { match(line, /^ */); return RLENGTH }
function examplesOf(type, indent,   count, list, i, text, picture) {
  count = split(examples[type], list, " ")
  if (count == 0) {
    if (indent == "") print type " has no example in examples/" >"/dev/stderr"
    return ""
  }
  text = indent "///\n" indent "/// @par Examples\n"
  for (i = 1; i <= count; ++i) {
    sub(/.*\//, "", list[i])
    text = text indent "/// @ref " list[i] (i < count ? "," : "") "\n"
  }
  picture = list[1]
  sub(/\.[a-z]+$/, ".png", picture)
  return text indent "///\n" indent "/// @image html " picture "\n"
}
# A GLYPHWRIGHT_ENUMERATION("space.", E, "title", (name, "method"), …) that stands on one line here.
function enumerationOf(call,   part, count, i, quoted, name, cases) {
  split(call, quoted, "\"")
  name = quoted[3]
  gsub(/[ ,]/, "", name)
  printf "/// The icons under “%s” in the catalogue: %s%s.\n%s", quoted[4], quoted[2], name,
         examplesOf("CatalogueEnumeration", "")
  printf "class %s : public IconEnumeration<%s> {\n public:\n", name, name
  print "  /// Its heading.\n  static constexpr std::string_view title;"
  print "  /// All cases, in the order of their declaration.\n  static const std::array<" name "> allCases;"
  count = split(call, part, "(")
  for (i = 3; i <= count; ++i) {
    split(part[i], quoted, "\"")
    cases = part[i]
    sub(/[,)].*/, "", cases)
    printf "  /// Drawn by %s().\n  static const %s %s;\n", quoted[2] ? quoted[2] : cases, name, cases
  }
  print "};"
}
BEGIN {
  while ((getline line < ENVIRON["EXAMPLES"]) > 0) {
    split(line, pair, " ")
    examples[pair[1]] = examples[pair[1]] " " pair[2]
  }
}
FNR == 1 { isC = FILENAME ~ /c\/glyphwright\.h$/ }
/^GLYPHWRIGHT_ENUMERATION\(/ || call != "" {
  call = call $0
  if (/\)\)$/) { enumerationOf(call); call = "" }
  next
}
isC {
  if (/;.*\/\*|,.*\/\*|= [0-9]+ *\/\*/) sub(/\/\*/, "/**<")
  else if (/^ *\/\*/) sub(/\/\*/, "/**")
}
/^ *[A-Za-z]+( = [0-9]+)?, +\/\/ / { sub(/\/\/ /, "///< ") }
/ = default;$|friend constexpr bool operator==/ && doc == "" && last !~ /,$/ { print "  /// As the language makes it: part by part." }
/^ *$/ { doc = ""; print; next }
/^ *\/\/\/ / || /^ *\/\/\/$/ {
  if (!inDoc) { doc = ""; docIndent = indentOf($0) }
  inDoc = 1; doc = doc $0 "\n"; last = $0; print; next
}
/^ *\/\*\*[^<]/ || inBlock {
  if (!inBlock) { doc = ""; docIndent = indentOf($0) }
  inBlock = !/\*\//; doc = doc $0 "\n"; last = "/"; inDoc = 1; print; next
}
inDoc && /^ *template <.*>$/ { held = $0; getline; $0 = held "\n" $0 }
inDoc && match($0, /(class|struct|enum|enum class|concept) [A-Za-z_]+( [:={]|$)/) && !/;$/ && !/public:|private:/ {
  type = substr($0, RSTART, RLENGTH)
  sub(/ [:={]$/, "", type)
  sub(/.* /, "", type)
  if (!isC || /typedef/) printf "%s", examplesOf(type, substr($0, 1, indentOf($0)))
}
{
  starts = doc != "" && !inDoc && indentOf($0) == docIndent && last ~ /[;},]( *\/[\/*].*)?$/ &&
           $0 !~ /^ *(\}|#|\/\/|private:|protected:|public:)/
  if (starts && $0 !~ /\/\*\*<|\/\/\/</) printf "%s", doc
  inDoc = 0; last = $0; print
}
