// The wait dialog msgお待ち: shown without blocking as long as a long write or copy runs.
#pragma once

#include <memory>

namespace kestrel {

struct Msgお待ち;

// In front and painted before the constructor returns; gone with the object, also when an error ends the work.
struct WaitDialog {
    WaitDialog();
    ~WaitDialog();
    WaitDialog(const WaitDialog&) = delete;
    WaitDialog& operator=(const WaitDialog&) = delete;

private:
    std::unique_ptr<Msgお待ち> dialog;
};

} // namespace kestrel
