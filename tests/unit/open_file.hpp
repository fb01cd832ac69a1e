// Another process that has a file open, until the end of the test.
#pragma once

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel::test {

class OpenElsewhere {
public:
    explicit OpenElsewhere(const std::string& path) {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        process = fork();
        if (process == 0) hold(path, ready[1]);
        char answer = '0';
        EXPECT_EQ(read(ready[0], &answer, 1), 1);
        EXPECT_EQ(answer, '1') << path;
        close(ready[0]);
        close(ready[1]);
    }
    OpenElsewhere(const OpenElsewhere&) = delete;
    OpenElsewhere& operator=(const OpenElsewhere&) = delete;
    ~OpenElsewhere() {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    pid_t process = 0;

private:
    [[noreturn]] static void hold(const std::string& path, int ready) {
        const char answer = open(path.c_str(), O_RDONLY) >= 0 ? '1' : '0';
        if (write(ready, &answer, 1) != 1) _exit(1);
        for (;;) pause();
    }
};

} // namespace kestrel::test
