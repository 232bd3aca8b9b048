#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <optional>
#include <sys/ptrace.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace host_tests {

/// A process that runs `work` and stops before each of its system calls.
class SteppedProcess {
public:
    template<typename Work>
    explicit SteppedProcess(const Work& work) : child_(::fork()) {
        if (child_ == 0) {
            if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
                ::_exit(kNotStepped);
            }
            ::raise(SIGSTOP);
            ::_exit(work());
        }
        wait();
        if (isStopped()) {
            ::ptrace(PTRACE_SETOPTIONS, child_, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
        }
    }
    SteppedProcess(const SteppedProcess&) = delete;
    SteppedProcess& operator=(const SteppedProcess&) = delete;
    ~SteppedProcess() { kill(); }

    /// Lets `calls` system calls happen and kills the process before the next one does; gives the
    /// process's exit status when it ends by itself before.
    std::optional<int> killAfter(int calls) {
        // A call stops the process twice, before and after it happens.
        for (int stops = 0; isStopped() && stops < 2 * calls + 1; stops += atCall() ? 1 : 0) {
            ::ptrace(PTRACE_SYSCALL, child_, nullptr, nullptr);
            wait();
        }
        kill();
        return WIFEXITED(status_) ? std::optional<int>(WEXITSTATUS(status_)) : std::nullopt;
    }

    /// The exit status where the system does not let a process be stepped.
    static constexpr int kNotStepped = 99;

private:
    bool isStopped() const { return child_ > 0 && WIFSTOPPED(status_); }
    bool atCall() const { return isStopped() && WSTOPSIG(status_) == (SIGTRAP | 0x80); }
    void wait() {
        if (child_ < 0 || ::waitpid(child_, &status_, 0) != child_) {
            status_ = kNotStepped << 8;
        }
    }
    void kill() {
        if (isStopped()) {
            ::kill(child_, SIGKILL);
            wait();
        }
    }

    pid_t child_;
    int status_ = 0;
};

/// Does `work` (an exit status, 0 for done) in processes of its own, the first killed before its
/// first system call, each later one a call later, until one ends by itself. Around each, `prepare`
/// and then `check` are called with the number of calls that happened. Gives how many were killed.
/// Where the system lets no process be stepped, the test fails.
template<typename Prepare, typename Work, typename Check>
int killAtEachCall(const Prepare& prepare, const Work& work, const Check& check) {
    constexpr int kMostCalls = 5000;
    for (int calls = 0; calls < kMostCalls && !::testing::Test::HasFailure(); ++calls) {
        prepare();
        const std::optional<int> ended = SteppedProcess(work).killAfter(calls);
        if (ended.has_value()) {
            EXPECT_NE(*ended, SteppedProcess::kNotStepped) << "ptrace is not permitted here";
            EXPECT_EQ(*ended, 0);
            return calls;
        }
        check(calls);
    }
    ADD_FAILURE() << "the work did not come to its end";
    return 0;
}

} // namespace host_tests
