#pragma once
// Faults of the library as tests compare and print them.

#include <ostream>
#include <vector>

#include "library/modLibraryCheck.hpp"

namespace tarvek {

inline bool operator==(const LibraryFault& a, const LibraryFault& b) {
    return a.file == b.file && a.section == b.section && a.key == b.key && a.text == b.text;
}

inline std::ostream& operator<<(std::ostream& out, const LibraryFault& fault) {
    return out << fault.file << " [" << fault.section << "] " << fault.key << ": " << fault.text;
}

}  // namespace tarvek

namespace tarvek::test {

using Faults = std::vector<LibraryFault>;

}  // namespace tarvek::test
