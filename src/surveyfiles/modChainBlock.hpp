#pragma once
// The chains at the end of points-and-chains and project files.

#include <string>
#include <string_view>

#include "platform/modTextFileOut.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

// Prints "BG:BEGIN CHAIN LIST", every chain, "EG:END CHAIN LIST" and the "CP:" line with date and time.
// Nothing where the list is not allocated.
void PrintChains(TextFileOut& file, const ChainList& chains);

// A point list in lines of at most 80 characters, broken behind commas, each further line under "PL:". Line
// breaks that are in the text already count as characters and are kept. What has no comma among its first 80
// characters is left on one line.
std::string WrapPointList(std::string_view text);

}  // namespace tarvek
