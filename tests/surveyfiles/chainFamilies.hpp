#pragma once
// The two families of survey files that hold chains, for tests that hold of both.

#include <ostream>
#include <string>

#include "surveyTest.hpp"

namespace tarvek::test {

struct ChainFamily {
    const char* name;
    bool (*read)(const std::string& path);
    bool (*write)(const std::string& path);
};

inline constexpr ChainFamily ChainFamilies[] = {
    {"PAC", ReadPointsAndChainsFile, WritePointsAndChainsFile},
    {"PRJ", ReadProjectFile, WriteProjectFile},
};

// How a test of a family is named and listed.
inline std::string NameOfFamily(const ::testing::TestParamInfo<ChainFamily>& test) { return test.param.name; }
inline void PrintTo(const ChainFamily& family, std::ostream* out) { *out << family.name; }

}  // namespace tarvek::test
