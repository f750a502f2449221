#include "platform/modTrap.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <new>

#include "platform/modFaults.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

using test::ScriptedPrompts;

TEST(Trap, ResultOfTheRunPasses) {
    const ScriptedPrompts prompts;
    EXPECT_EQ(RunTrapped([] { return 0; }), 0);
    EXPECT_EQ(RunTrapped([] { return 2; }), 2);
    test::ExpectNothingTold(prompts);
}

TEST(Trap, FaultIsToldAndEndsTheRun) {
    const ScriptedPrompts prompts;
    EXPECT_EQ(RunTrapped([]() -> int { RaiseFault(Fault::Overflow); }), 1);
    test::ExpectToldOnly(prompts, "Run-time error '6': Overflow", "Tarvek Translator");
}

TEST(Trap, LackOfMemoryIsTold) {
    const ScriptedPrompts prompts;
    EXPECT_EQ(RunTrapped([]() -> int { throw std::bad_alloc(); }), 1);
    test::ExpectToldOnly(prompts, "Run-time error '7': Out of memory", "Tarvek Translator");
}

TEST(Trap, WriteIntoAClosedPipeComesBackAsAnError) {
    const pid_t child = ::fork();
    if (child == 0) {
        PrepareProcess();
        int ends[2];
        if (::pipe(ends) != 0) ::_exit(2);
        ::close(ends[0]);
        ::_exit(::write(ends[1], "x", 1) < 0 && errno == EPIPE ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tarvek
