#include "setup/tsv.hpp"

#include "setup/embedded.hpp"

#include <stdexcept>
#include <string>

namespace kestrel::setup {

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t from = 0;;) {
        const std::size_t end = text.find(separator, from);
        parts.push_back(text.substr(from, end - from));
        if (end == std::string_view::npos) return parts;
        from = end + 1;
    }
}

std::vector<std::vector<std::string_view>> fieldsOf(std::string_view name) {
    const std::string_view content = embeddedFile(name);
    if (content.empty()) throw std::logic_error("schema/" + std::string(name) + ".tsv is not part of the program");
    std::vector<std::vector<std::string_view>> lines;
    for (const std::string_view line : split(content, '\n')) {
        if (!line.empty() && line.front() != '#') lines.push_back(split(line, '\t'));
    }
    return lines;
}

} // namespace kestrel::setup
