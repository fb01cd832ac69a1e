#include "text/quoting.hpp"

namespace kestrel::text {

static void appendEscaped(std::string& result, char c) {
    switch (c) {
    case '"':
        result += "\\\"";
        break;
    case '\\':
        result += "\\\\";
        break;
    case '\n':
        result += "\\n";
        break;
    case '\r':
        result += "\\r";
        break;
    case '\t':
        result += "\\t";
        break;
    default:
        result += c;
    }
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (char c : text) appendEscaped(result, c);
    return result + '"';
}

} // namespace kestrel::text
