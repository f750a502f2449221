#include "datumtools/modNADCON_32.hpp"

#include <cmath>
#include <cstdint>

#include "coordmath/modAngles.hpp"
#include "datumtools/modNADCONGrid.hpp"
#include "library/modMethodNames.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modProgress.hpp"
#include "platform/modPrompts.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {
namespace {

constexpr const char* NADCONError = "NADCON Error";
constexpr double SecondsPerDegree = 3600.0;
constexpr int MostRounds = 11;
constexpr double Settled = 1e-9;  // degrees, 0.1 mm
constexpr int Decimals = 9;       // of the degrees that a position is taken with
constexpr std::size_t PointsPerProgress = 4096;

struct NADCONState {
    NADCONFile LASFile;
    NADCONFile LOSFile;
    NADCONHeader LASHeader;
    NADCONHeader LOSHeader;
    float GridXMax = 0;
    float GridYMax = 0;
    std::string GridName;
    bool GridForward = false;
};

NADCONState State;

// The last row or column; latitudes are taken around the circle as longitudes are.
float LimitOf(float first, float step, std::int32_t count) {
    const float limit = SingleFromNumber(double{step} * (count - 1.0) + double{first});
    return limit > 180 ? SingleFromNumber(limit - 360.0) : limit;
}

void NADCON_SetLimits() {
    const NADCONHeader& header = State.LASHeader;
    State.GridXMax = LimitOf(header.XMin, header.DX, header.NC);
    State.GridYMax = LimitOf(header.YMin, header.DY, header.NR);
}

// Column `x` as far as 16 bits tell the place of its word in a row.
std::int64_t ColumnOf(double x) { return Integer16FromNumber(4.0 * Integer16FromNumber(std::floor(x))) / 4; }

bool TellDoesNotSettle() {
    TellFault("Maximum number of iterations exceeded for the NADCON Inverse Transformation.", NADCONError);
    return false;
}

bool TransformPoint(PointRecord& point) {
    // The directions change on degrees, though the full circle that they count with is one of radians.
    double latitude =
        Angles_GET_Direction(RoundedAsFixedText(point.LT * DegreesPerRadian, Decimals), point.LatDir, "N");
    double longitude =
        Angles_GET_Direction(RoundedAsFixedText(point.LG * DegreesPerRadian, Decimals), point.LongDir, "-W");
    if (!NADCON_InGrid(latitude, longitude)) return false;
    const bool isShifted =
        State.GridForward ? NADCON_Forward(latitude, longitude) : NADCON_Inverse(latitude, longitude);
    if (!isShifted) return false;
    point.LT = Angles_GET_Direction(RoundedAsGeneralText(latitude) * RadiansPerDegree, "N", point.LatDir);
    point.LG = Angles_GET_Direction(RoundedAsGeneralText(longitude) * RadiansPerDegree, "-W", point.LongDir);
    return true;
}

}  // namespace

bool NADCON_Transform(std::string_view method) {
    if (!NADCON_SetGrid(method) || !NADCON_OpenGrid()) return false;
    PointList& points = Tables().ConversionPoints;
    ProgressTask progress;
    progress.Begin("Shifting datums", points.size());
    for (std::size_t i = 0, count = points.size(); i < count; ++i) {
        if (i % PointsPerProgress == 0) progress.At(i);
        if (!TransformPoint(points.Change(i))) return false;
    }
    State = NADCONState();
    State.GridXMax = State.GridYMax = NoValueSingle;
    return true;
}

bool NADCON_SetGrid(std::string_view method) {
    const NADCONMethod* const found = FindNADCONMethod(method);
    if (found == nullptr) {
        TellFault("Unkown NADCON Conversion.", "Unkown NADCON Conversion");
        return false;
    }
    State.GridName = found->grid;
    State.GridForward = found->forward;
    return true;
}

bool NADCON_OpenGrid() {
    State.LASFile = NADCONFile(NADCONPath(State.GridName, ".las"));
    State.LOSFile = NADCONFile(NADCONPath(State.GridName, ".los"));
    State.LASHeader = State.LASFile.Header();
    State.LOSHeader = State.LOSFile.Header();
    if (State.LASFile.HeaderBytes() != State.LOSFile.HeaderBytes()) {
        TellFault("The '" + State.GridName +
                      "' LAS and LOS file headers do not match.  Can not perform the NADCON conversion(s).",
                  NADCONError);
        return false;
    }
    NADCON_SetLimits();
    return true;
}

bool NADCON_InGrid(double latitude, double longitude) {
    const NADCONHeader& header = State.LASHeader;
    const float y = SingleFromNumber(latitude);
    const float x = SingleFromNumber(longitude);
    if (header.YMin < y && y < State.GridYMax && header.XMin < x && x < State.GridXMax) return true;
    TellFault(
        "The point to be converted does not fall within the selected NADCON grid.  Can not convert point.",
        NADCONError);
    return false;
}

double NADCON_Interpolate(double latitude, double longitude, bool useLatitudeGrid) {
    const double y = (latitude - double{State.LASHeader.YMin}) / double{State.LASHeader.DY};
    const double x = (longitude - double{State.LOSHeader.XMin}) / double{State.LOSHeader.DX};
    RequireFinite(x + y);
    const std::int64_t iy = Integer32FromNumber(std::floor(y));
    const std::int64_t ix = ColumnOf(x);
    const double ty = y - static_cast<double>(iy);
    const double tx = x - static_cast<double>(ix);

    // Past the header, iy rows and the word before the row that is looked at. Places in a file have 32 bits.
    const std::int64_t rowSize = 4 * (std::int64_t{State.LASHeader.NC} + 1);
    const std::int64_t rowStart =
        Integer32FromNumber(static_cast<double>(rowSize) * static_cast<double>(iy + 1));
    const std::int64_t position = rowStart + 4 + 4 * ix;
    const NADCONFile& file = useLatitudeGrid ? State.LASFile : State.LOSFile;
    const double z1 = file.ShiftAt(position);
    const double z2 = file.ShiftAt(position + 4);
    const double z3 = file.ShiftAt(position + rowSize);
    const double z4 = file.ShiftAt(position + rowSize + 4);

    const double A = z1;
    const double B = SingleFromNumber(z2 - z1);
    const double C = SingleFromNumber(z3 - z1);
    const double D = z4 - z2 - z3 + z1;
    return RequireFinite((B * tx + A) + C * ty + ty * (tx * D));
}

bool NADCON_Forward(double& latitude, double& longitude) {
    const double s = NADCON_Interpolate(latitude, longitude, true);
    if (s == 0) return false;
    const double t = NADCON_Interpolate(latitude, longitude, false);
    if (t == 0) return false;
    latitude += s / SecondsPerDegree;
    longitude -= t / SecondsPerDegree;
    return true;
}

bool NADCON_Inverse(double& latitude, double& longitude) {
    double solvedLat = latitude;
    double solvedLon = longitude;
    double workLat = latitude;
    double workLon = longitude;
    for (int round = 0; round < MostRounds; ++round) {
        // Where there is no data the position stays, and is the solution.
        NADCON_Forward(workLat, workLon);
        const double dLat = latitude - workLat;
        const double dLon = longitude - workLon;
        const bool latitudeMoves = std::fabs(dLat) > Settled;
        const bool longitudeMoves = std::fabs(dLon) > Settled;
        if (latitudeMoves) workLat = solvedLat += dLat;
        // A coordinate that has settled goes into the next round shifted, while the other goes on.
        if (longitudeMoves) workLon = solvedLon += dLon;
        if (!latitudeMoves && !longitudeMoves) {
            latitude = solvedLat;
            longitude = solvedLon;
            return true;
        }
    }
    return TellDoesNotSettle();
}

}  // namespace tarvek
