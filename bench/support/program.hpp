// The program on an installation of its own, as the benchmarks need it, and the statements that it sends.
#pragma once

#include "raw.hpp"
#include "setup/installation.hpp"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::bench {

inline constexpr std::string_view sampleDay = "20240515"; // the demonstration data count from it

// Where the installation lies. In memory nothing waits for a disk, which would take both sides so long that nothing
// else could be seen; on the disk the program is what a user has.
enum class Where { memory, disk };

// A fresh installation, removed at the end. The program of this process is the one that lies there, at half past nine
// of the sample's day. Ends the process when it can't be made.
class Installation {
public:
    Installation(setup::What what, Where where);
    ~Installation();
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;

    std::string mainFile() const { return (root / setup::mainFile).string(); }
    std::string localFile() const { return (root / setup::localFile).string(); }
    const std::filesystem::path root;
};

void openOrEnd(); // both databases, or the process ends with a line

// One statement as the engine gets it.
struct Sent {
    bool local = false;
    std::string text;
};
std::vector<Sent> sentBy(const std::function<void()>& action); // in order

// The statements by the engine's own interface, on the files of the installation.
class Replay {
public:
    explicit Replay(const Installation& installation)
        : mainDatabase(installation.mainFile()), localDatabase(installation.localFile()) {}
    void run(const std::vector<Sent>& statements);

private:
    RawDatabase mainDatabase, localDatabase;
};

} // namespace kestrel::bench
