// What an operation of platform/ answers: a value, or the number and description of what went wrong.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace kestrel::platform {

// number: the engine's own code for a database, errno for files. description: one line for a person, never a password.
struct Failure {
    int number = 0;
    std::string description;
};

template <class T> class [[nodiscard]] Result {
public:
    Result(T value) : content(std::move(value)) {}
    Result(Failure failure) : content(std::move(failure)) {}

    explicit operator bool() const { return content.index() == 0; }
    T& value() { return std::get<0>(content); }
    const T& value() const { return std::get<0>(content); }
    const Failure& failure() const { return std::get<1>(content); }

private:
    std::variant<T, Failure> content;
};

using Status = Result<std::monostate>;
inline Status done() {
    return std::monostate{};
}

} // namespace kestrel::platform
