// The stored form of a PIN.
#pragma once

#include "company/pinCodec.hpp"

#include <string>
#include <string_view>

namespace kestrel::setup {

inline std::string storedPin(std::string_view plain) {
    return encode(plain);
}

} // namespace kestrel::setup
