#pragma once
// The last trap under a program: what no procedure has caught ends the run in order, told to the user.

#include <functional>

namespace tarvek {

// The result of `run`; 1 after a fault of the run time, which the user is told as "Run-time error 'N': text".
int RunTrapped(const std::function<int()>& run);

// What a program does first. Standard streams that are closed get a stand-in, so that no file takes their
// place; a closed pipe or a file size limit comes back as the error of a write and does not end the process.
void PrepareProcess();

}  // namespace tarvek
