// Any bytes as a control file: a refusal leaves the tables as they were, and what has been read can be
// written and read again.

#include "fuzz/fuzzSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"
#include "surveyfiles/modTarvekFiles.hpp"

namespace {

using namespace tarvek;
using fuzz::Require;

void FillInput() {
    Tables() = {};
    Tables().InputHeader.PR = "PR:before";
    PointRecord point;
    point.PN = "BEFORE";
    Tables().InputPoints.Append(point);
}

void RequireInputAsBefore() {
    const SurveyTables& tables = Tables();
    Require(tables.InputHeader.PR == "PR:before", "a refusal keeps the header");
    Require(tables.InputPoints.size() == 1 && tables.InputPoints[0].PN == "BEFORE",
            "a refusal keeps the points");
}

void RequireSamePoint(const PointRecord& before, const PointRecord& after) {
    Require(after.PN == before.PN, "a name comes back");
    Require(after.PD == before.PD, "a description comes back");
    Require(after.Others == before.Others, "other lines come back");
    Require(after.FE == before.FE && after.CL == before.CL && after.GR == before.GR, "words come back");
}

// A "UL:" line behind a point leaves that point in another unit, and what is carried to the unit of the file
// may get too large.
bool IsInUnitOfFile() {
    for (const PointRecord& point : Tables().OutputPoints)
        if (point.HorizontalUnits.Text() != Tables().InputHeader.System.HorizontalUnits) return false;
    return true;
}

void WriteAndReadAgain(const std::string& path) {
    CopyInputToOutput();
    const bool isWritten = fuzz::Succeeds([&] { return WriteControlFile(path); });
    Require(isWritten || !IsInUnitOfFile(), "what was read can be written");
    if (!isWritten) return;
    // Degrees that were rounded up may leave the range of the reader.
    if (!fuzz::Succeeds([&] { return ReadControlFile(path); })) return;
    const PointList& before = Tables().OutputPoints;
    const PointList& after = Tables().InputPoints;
    Require(after.size() == before.size(), "as many points come back");
    for (std::size_t i = 0; i < before.size(); ++i) RequireSamePoint(before[i], after[i]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::OutputFolder folder;
    fuzz::QuietPrompts prompts;
    const fuzz::MemoryFile file(fuzz::TextOf(data, size));
    FillInput();
    bool faulted = false;
    bool isRead = false;
    try {
        isRead = ReadControlFile(file.Path());
    } catch (const RuntimeFault&) {
        faulted = true;
    }
    if (isRead) {
        Require(Tables().InputPoints.IsAllocated(), "a file that was read has a point");
        WriteAndReadAgain(folder.FreshFile("output.ctl"));
    } else {
        RequireInputAsBefore();
        Require(faulted || prompts.told > 0, "a refusal is told");
    }
    return 0;
}
