# cmake -DFOLDER=... -DOUTPUT=... -P embed.cmake: writes one C++ file with the text of each FOLDER/*.tsv and FOLDER/*.txt. The bytes pass as they
# are; only quoted references are used, since a list would lose semicolons and brackets.
file(GLOB files ${FOLDER}/*.tsv ${FOLDER}/*.txt)
list(SORT files)
set(entries "")
foreach(path IN LISTS files)
  get_filename_component(name "${path}" NAME_WE)
  file(READ "${path}" content)
  string(LENGTH "${content}" size)
  if(size GREATER 65000)
    message(FATAL_ERROR "${path} is too long for one C++ literal; split it")
  endif()
  string(FIND "${content}" ")tsv\"" end)
  if(NOT end EQUAL -1)
    message(FATAL_ERROR "${path} holds the mark that ends a literal")
  endif()
  string(APPEND entries "    {\"${name}\", R\"tsv(${content})tsv\"},\n")
endforeach()
file(WRITE "${OUTPUT}" "// Made from schema/.
#include \"setup/embedded.hpp\"

#include <utility>

namespace kestrel::setup {

std::string_view embeddedFile(std::string_view name) {
    static constexpr std::pair<std::string_view, std::string_view> files[] = {
${entries}    };
    for (const auto& [key, content] : files) {
        if (key == name) return content;
    }
    return {};
}

} // namespace kestrel::setup
")
