#pragma once
// Standard output, as checked as any other file.

#include <string_view>

namespace tarvek {

// Writes the text and passes it on at once; the fault of the file system where that fails.
void PrintToStandardOutput(std::string_view text);

}  // namespace tarvek
