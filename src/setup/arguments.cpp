#include "setup/arguments.hpp"

#include <algorithm>

namespace kestrel::setup {

namespace {

// The words taken apart: what stands alone, options without and with a value, in their order.
struct Options {
    std::vector<std::string> alone;
    std::vector<std::string> flags;
    std::vector<std::pair<std::string, std::string>> values;

    bool has(std::string_view flag) const { return std::ranges::find(flags, flag) != flags.end(); }
    // What the last option of that name says.
    std::string valueOf(std::string_view option, std::string otherwise) const {
        for (const auto& [name, value] : values) {
            if (name == option) otherwise = value;
        }
        return otherwise;
    }
};

using Names = std::vector<std::string_view>;

bool isIn(const Names& names, std::string_view word) {
    return std::ranges::find(names, word) != names.end();
}

std::optional<Options> takeApart(const std::vector<std::string>& words, const Names& flags, const Names& options) {
    Options result;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (isIn(flags, words[i])) {
            result.flags.push_back(words[i]);
        } else if (isIn(options, words[i]) && i + 1 < words.size()) {
            result.values.emplace_back(words[i], words[i + 1]);
            ++i;
        } else if (!words[i].starts_with("--") && !words[i].empty()) {
            result.alone.push_back(words[i]);
        } else {
            return std::nullopt;
        }
    }
    return result;
}

} // namespace

std::optional<CreateRequest> readCreateRequest(const std::vector<std::string>& words, const std::string& today) {
    const auto found = takeApart(words, {"--minimal", "--full"}, {"--day", "--main", "--kind"});
    if (!found || found->alone.size() != 1) return std::nullopt;
    CreateRequest request;
    request.folder = found->alone[0];
    request.day = found->valueOf("--day", today);
    if (!found->flags.empty() && found->flags.back() == "--minimal") request.what = What::minimal;
    request.mainText = found->valueOf("--main", "");
    request.kind = found->valueOf("--kind", request.kind);
    return request;
}

std::optional<MoveRequest> readMoveRequest(const std::vector<std::string>& words) {
    const auto found = takeApart(words, {"--leave-unknown"}, {"--main", "--kind"});
    if (!found || found->alone.size() != 1) return std::nullopt;
    MoveRequest request;
    request.folder = found->alone[0];
    request.mainText = found->valueOf("--main", "");
    request.kind = found->valueOf("--kind", request.kind);
    request.leaveUnknown = found->has("--leave-unknown");
    return request.mainText.empty() ? std::nullopt : std::optional(request);
}

std::optional<RecoverRequest> readRecoverRequest(const std::vector<std::string>& words) {
    const auto found = takeApart(words, {"--apply"}, {});
    if (!found || found->alone.size() != 1) return std::nullopt;
    return RecoverRequest{found->alone[0], found->has("--apply")};
}

} // namespace kestrel::setup
