// What starting a program or opening a document answers in a test.
#pragma once

namespace kestrel::platform {

enum class Pretend {
    off,  // it is really done
    all,  // it succeeds and nothing is done
    none, // it fails as when there is nothing to start
};

} // namespace kestrel::platform
