// Another process of a test, ended by a kill.
#pragma once

#include <array>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel::test {

// Another process that runs the step, writes its answer to the pipe and stays until it is killed.
struct OtherProcess {
    pid_t process = -1;
    int answers = -1;

    explicit OtherProcess(const std::function<bool()>& step) {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe(ends.data()), 0);
        process = fork();
        if (process == 0) {
            char answer = step() ? 'y' : 'n';
            if (::write(ends[1], &answer, 1) == 1) pause();
            _exit(1);
        }
        ::close(ends[1]);
        answers = ends[0];
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    bool answer() const {
        char answer = 0;
        EXPECT_EQ(::read(answers, &answer, 1), 1);
        return answer == 'y';
    }
    void end() {
        if (process < 0) return;
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        ::close(answers);
        process = -1;
    }
    ~OtherProcess() { end(); }
};

} // namespace kestrel::test
