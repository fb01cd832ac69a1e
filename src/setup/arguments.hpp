// The words behind "kestrel-setup create", "kestrel-setup move" and "kestrel-setup recover".
#pragma once

#include "setup/create.hpp"
#include "setup/move.hpp"

#include <optional>
#include <string>
#include <vector>

namespace kestrel::setup {

// DIR [--minimal | --full] [--day YYYYMMDD] [--main TEXT [--kind KIND]], in any order; today stands for a day that
// isn't given. Nothing when the words make no sense.
std::optional<CreateRequest> readCreateRequest(const std::vector<std::string>& words, const std::string& today);

// DIR --main TEXT [--kind KIND] [--leave-unknown], in any order. Nothing when the words make no sense.
std::optional<MoveRequest> readMoveRequest(const std::vector<std::string>& words);

struct RecoverRequest {
    std::string folder;
    bool apply = false;
};

// DIR [--apply], in any order.
std::optional<RecoverRequest> readRecoverRequest(const std::vector<std::string>& words);

} // namespace kestrel::setup
