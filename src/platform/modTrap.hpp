#pragma once
// The last trap under a program: what no procedure has caught ends the run in order, told to the user.

#include <functional>

namespace tarvek {

// The result of `run`; 1 after a fault of the run time, which the user is told as "Run-time error 'N': text".
int RunTrapped(const std::function<int()>& run);

// Lets a closed pipe or a file size limit come back as the error of a write instead of ending the process at
// once.
void IgnoreWriteSignals();

}  // namespace tarvek
