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

# A compiler need not take a text of more than 65,536 characters, so each goes into several, which
# end with a line.
function(pieces_of text result)
  set(longest 60000)
  set(pieces "")
  string(LENGTH "${text}" left)
  while(left GREATER longest)
    string(SUBSTRING "${text}" 0 ${longest} piece)
    string(FIND "${piece}" "\n" end REVERSE)
    if(end LESS 0)
      message(FATAL_ERROR "the page has a line of more than ${longest} characters")
    endif()
    math(EXPR end "${end} + 1")
    string(SUBSTRING "${text}" 0 ${end} piece)
    string(SUBSTRING "${text}" ${end} -1 text)
    string(APPEND pieces "R\"page(${piece})page\",\n")
    string(LENGTH "${text}" left)
  endwhile()
  set(${result} "${pieces}R\"page(${text})page\"" PARENT_SCOPE)
endfunction()

pieces_of("${head}" head)
pieces_of("${tail}" tail)
file(WRITE "${OUTPUT}" "#include \"report/PageText.h\"

namespace pipenet {

namespace {

constexpr std::string_view kHead[] = {${head}};
constexpr std::string_view kTail[] = {${tail}};

} // namespace

const std::span<const std::string_view> kPageHead = kHead;
const std::span<const std::string_view> kPageTail = kTail;

} // namespace pipenet
")
