#include "setup/arguments.hpp"

namespace kestrel::setup {

std::optional<CreateRequest> readCreateRequest(const std::vector<std::string>& words, const std::string& today) {
    CreateRequest request{"", What::full, today};
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--minimal" || words[i] == "--full") {
            request.what = words[i] == "--full" ? What::full : What::minimal;
        } else if (words[i] == "--day" && i + 1 < words.size()) {
            request.day = words[++i];
        } else if (request.folder.empty() && !words[i].starts_with("--")) {
            request.folder = words[i];
        } else {
            return std::nullopt;
        }
    }
    if (request.folder.empty()) return std::nullopt;
    return request;
}

std::optional<RecoverRequest> readRecoverRequest(const std::vector<std::string>& words) {
    RecoverRequest request;
    for (const std::string& word : words) {
        if (word == "--apply") {
            request.apply = true;
        } else if (request.folder.empty() && !word.starts_with("--")) {
            request.folder = word;
        } else {
            return std::nullopt;
        }
    }
    return request.folder.empty() ? std::nullopt : std::optional(request);
}

} // namespace kestrel::setup
