# Writes the source that holds the page's files: cmake -DPAGE=<folder> -DOUTPUT=<file> -P embed-page.cmake
file(GLOB files "${PAGE}/*")
set(arrays "")
set(table "")
set(index 0)
foreach(file IN LISTS files)
  cmake_path(GET file FILENAME name)
  file(READ "${file}" bytes HEX)
  string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
  string(APPEND arrays "constexpr char part${index}[] = {${bytes}};\n")
  string(APPEND table "    {\"${name}\", {part${index}, sizeof part${index}}},\n")
  math(EXPR index "${index} + 1")
endforeach()
file(WRITE "${OUTPUT}" "#include \"simulator/live/EmbeddedPage.h\"

namespace {

${arrays}
constexpr EmbeddedPart parts[] = {
${table}};

} // namespace

std::span<const EmbeddedPart> embeddedPage() {
    return parts;
}
")
