# Puts the page of the report together and writes it as C++: style and script go into the page, and
# the page is cut where the data of a drawing will stand.
#
#   cmake -D OUTPUT=FILE -D SCRIPTS=A.js,B.js,... -P MakePage.cmake
#
# The scripts are one module, in the order given. No script may need the network or another file.
cmake_minimum_required(VERSION 3.22)

set(folder "${CMAKE_CURRENT_LIST_DIR}")
string(REPLACE "," ";" names "${SCRIPTS}")
set(script "")
foreach(name IN LISTS names)
  file(READ "${folder}/${name}" text)
  string(APPEND script "\n// ${name}\n${text}")
endforeach()
file(READ "${folder}/style.css" style)
file(READ "${folder}/page.html" page)

foreach(text IN ITEMS "${style}" "${script}" "${page}")
  if(text MATCHES "\\)page\"")
    message(FATAL_ERROR "the page holds what ends its text in C++: )page\"")
  endif()
endforeach()

string(REPLACE "{{style}}" "${style}" page "${page}")
string(REPLACE "{{script}}" "${script}" page "${page}")
string(FIND "${page}" "{{data}}" cut)
if(cut LESS 0)
  message(FATAL_ERROR "page.html has no place for the data")
endif()
string(SUBSTRING "${page}" 0 ${cut} head)
math(EXPR rest "${cut} + 8")
string(SUBSTRING "${page}" ${rest} -1 tail)

file(WRITE "${OUTPUT}" "#include \"report/PageText.h\"

namespace pipenet {

const std::string_view kPageHead = R\"page(${head})page\";
const std::string_view kPageTail = R\"page(${tail})page\";

} // namespace pipenet
")
