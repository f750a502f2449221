#include "platform/modTrap.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <new>

#include "platform/modFaults.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek {

int RunTrapped(const std::function<int()>& run) {
    try {
        return run();
    } catch (const RuntimeFault& fault) {
        TellFault(fault.Message());
    } catch (const std::bad_alloc&) {
        TellFault(RuntimeFault(Fault::OutOfMemory).Message());
    } catch (const std::exception& error) {
        TellFault(RuntimeFault(Fault::Unexpected, error.what()).Message());
    }
    return 1;
}

void PrepareProcess() {
    constexpr int FirstFreeDescriptor = 3;
    int file = 0;
    do {
        file = ::open("/dev/null", O_RDWR);
    } while (file >= 0 && file < FirstFreeDescriptor);
    if (file >= 0) ::close(file);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace tarvek
