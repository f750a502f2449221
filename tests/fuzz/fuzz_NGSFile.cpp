// Any bytes as NGS data sheets: a refusal or a stop leaves the tables as they were.

#include "foreignfiles/modNGSFiles.hpp"
#include "fuzz/fuzzSupport.hpp"
#include "fuzz/fuzzTables.hpp"
#include "surveyfiles/modSurveyRecords.hpp"
#include "surveyfiles/modTarvekFiles.hpp"

namespace {

using namespace tarvek;
using fuzz::Require;

void RequireImport() {
    const SurveyTables& tables = Tables();
    Require(tables.InputHeader.System.CS == GeographicSystem, "an import is geographic");
    Require(tables.InputHeader.System.VerticalUnits == "Meters", "an import is in meters");
    Require(tables.InputPoints.IsAllocated(), "an import has a point");
    for (const PointRecord& point : tables.InputPoints) {
        Require(point.HorizontalUnits == "Meters" && point.VerticalUnits == "Meters", "a point is in meters");
        Require(point.Others.starts_with("CM:"), "a point keeps its retrieval date");
    }
}

using Reader = bool (*)(const std::string&);

}  // namespace

// The first byte chooses the reader and the answers; the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::OutputFolder folder;
    constexpr Reader Readers[] = {ReadNGSFile, ReadNGSFileBefore2012, ReadNGSFile2012, ReadNGSFile};
    const std::uint8_t choice = size > 0 ? data[0] : 0;
    fuzz::QuietPrompts prompts;
    prompts.agrees = (choice & 4) == 0;
    const std::string_view text = fuzz::TextOf(data, size);
    const fuzz::MemoryFile file(text.substr(size > 0 ? 1 : 0));
    fuzz::FillInput();
    if (!fuzz::Succeeds([&] { return Readers[choice & 3](file.Path()); })) {
        fuzz::RequireInputAsBefore();
        return 0;
    }
    RequireImport();
    CopyInputToOutput();
    fuzz::Succeeds([&] { return WriteControlFile(folder.FreshFile("output.ctl")); });
    return 0;
}
