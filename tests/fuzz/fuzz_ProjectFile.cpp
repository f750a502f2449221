// Any bytes as a project, edited or calculated file.

#include "fuzz/fuzzSurveyFiles.hpp"
#include "surveyfiles/modTarvekFiles.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvek;
    static const fuzz::OutputFolder folder;
    fuzz::RunSurveyFile(fuzz::TextOf(data, size), folder.FreshFile("output.prj"),
                        {.read = ReadProjectFile, .write = WriteProjectFile, .keepsKinds = true});
    return 0;
}
