// tarvek-translator: the desktop program, with its "-s" and "-t" command lines.

#include <string>

#include "driver/modMain.hpp"
#include "platform/modTrap.hpp"

int main(int argc, char** argv) {
    tarvek::PrepareProcess();
    std::string commandLine;
    for (int i = 1; i < argc; ++i) commandLine.append(i > 1 ? " " : "").append(argv[i]);
    return tarvek::RunTrapped([&] {
        tarvek::Main(commandLine);
        return 0;
    });
}
