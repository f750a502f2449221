#include "platform/modTrap.hpp"

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

void IgnoreWriteSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace tarvek
