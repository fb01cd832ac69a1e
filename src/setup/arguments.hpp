// The words behind "kestrel-setup create" and "kestrel-setup recover".
#pragma once

#include "setup/installation.hpp"

#include <optional>
#include <string>
#include <vector>

namespace kestrel::setup {

struct CreateRequest {
    std::string folder;
    What what = What::full;
    std::string day; // as typed
};

// DIR [--minimal | --full] [--day YYYYMMDD], in any order; today stands for a day that isn't given. Nothing when the
// words make no sense.
std::optional<CreateRequest> readCreateRequest(const std::vector<std::string>& words, const std::string& today);

struct RecoverRequest {
    std::string folder;
    bool apply = false;
};

// DIR [--apply], in any order.
std::optional<RecoverRequest> readRecoverRequest(const std::vector<std::string>& words);

} // namespace kestrel::setup
