#pragma once
// What every reader fills and every writer prints: points, chains, the header of a set and the tables that
// hold them. Members bear the two-letter tags of the file language where they have one.

#include <string>

#include "library/modLibraryNames.hpp"  // the words of a coordinate system
#include "platform/modWord.hpp"
#include "surveyfiles/modSharedList.hpp"

namespace tarvek {

// The exact number that stands for no value, in 64-bit and 32-bit members alike, tested by equality.
inline constexpr double NoValue = -99999.0;
inline constexpr float NoValueSingle = -99999.0F;
inline constexpr const char* NoValueText = "-99999";

inline bool HasValue(double value) { return value != NoValue; }
inline bool HasValue(float value) { return value != NoValueSingle; }

// One survey point. Angles are radians, lengths are in the unit that the record names. A fresh record is the
// empty one.
struct PointRecord {
    std::string PN;                  // point name
    Word Reserved1;                  // never filled or printed
    Word GM = PointGeometry();       // geometry type
    Word CL;                         // class
    Word FE;                         // feature code
    Word GroupNumber;                // whole-number group of an SRV point
    Word Reserved3;                  // never filled or printed
    std::string PD;                  // description: whole "PD:" lines joined by CR LF
    double Y = NoValue;              // northing, in HorizontalUnits
    double X = NoValue;              // easting, in HorizontalUnits
    double Z = NoValue;              // elevation, in VerticalUnits
    float SY = NoValueSingle;        // northing error estimate, one sigma
    float SX = NoValueSingle;        // easting error estimate, one sigma
    float SZ = NoValueSingle;        // elevation error estimate, one sigma
    double LT = NoValue;             // latitude, direction in LatDir
    double LG = NoValue;             // longitude, direction in LongDir
    double HE = NoValue;             // ellipsoid height, in VerticalUnits
    double HG = NoValue;             // geoid height, in VerticalUnits
    Word GD;                         // geoid model that produced HG
    double CA = NoValue;             // convergence angle
    double SF = NoValue;             // scale factor
    bool IsGeographic = false;       // the position lives in LT and LG, not in X and Y
    bool Unchained = true;           // false once a chain has consumed the point
    bool HorizontalControl = false;  // X and Y came from "XC:" and "YC:", not from "XX:" and "YY:"
    bool VerticalControl = false;    // Z came from "ZC:", not from "ZZ:"
    std::string Others;              // unrecognised lines of the point, whole, joined by CR LF
    Word FileSource;                 // file the point came from, shown in KML
    Word HorizontalUnits;            // long name of the unit of X and Y, or an angle format
    Word VerticalUnits;              // long name of the unit of Z, HE and HG
    Word LatDir = North();           // hemisphere letter of LT
    Word LongDir = West();           // hemisphere letter of LG
    Word AC;                         // activity
    Word Reserved4;                  // never filled or printed
    Word GR;                         // group

  private:
    static Word PointGeometry();
    static Word North();
    static Word West();
};

// One chain: an ordered list of point names with its code.
struct ChainRecord {
    std::string ChainName;
    std::string CL;           // class
    std::string GR;           // group
    std::string FE;           // feature code
    std::string CD;           // description lines joined by CR LF
    std::string FG;           // figure code
    std::string PL;           // whole "PL:" lines joined by CR LF
    std::string CH;           // whole "CH:" lines joined by CR LF
    std::string Others;       // unrecognised lines of the chain, whole, joined by CR LF
    bool Pending = false;     // Others is still to be printed by the SRV writer
    std::string ChainSource;  // file the chain came from, shown in KML
    std::string Station;      // starting station, such as 10+00
};

// Names a coordinate system. CS and ZN can be a short name, "-" and a description.
struct CoordSystemRef {
    std::string CS;               // coordinate system
    std::string ZN;               // zone
    std::string HD;               // horizontal datum
    std::string HorizontalUnits;  // unit of X and Y, or an angle format (begins "DDD") for a geographic set
    std::string VD;               // vertical datum
    std::string VerticalUnits;    // unit of heights
};

inline bool IsGeographicSystem(const CoordSystemRef& system) { return system.CS == GeographicSystem; }

// What travels with a point set.
struct ProjectHeader {
    std::string PR;           // the "PR:" line, whole
    std::string HeaderLines;  // unrecognised lines before the first point, whole, joined by CR LF
    CoordSystemRef System;
};

using PointList = SharedList<PointRecord>;
using ChainList = SharedList<ChainRecord>;

// A coordinate conversion that the user has asked for.
struct ConversionOptions {
    CoordSystemRef InputSystem;
    CoordSystemRef OutputSystem;
    bool ComputeLatLong = false;      // print latitude and longitude
    bool ComputeScale = false;        // print the scale factor
    bool ComputeConvergence = false;  // print the convergence angle
    bool ComputeGeoid = false;        // run the geoid stage
    std::string GeoidModel;           // "GEOID99" and its like
    bool ShowReport = false;          // a single point: build its report
    bool OutputGeographic = false;    // set by the pipeline for geographic output
    bool Converted = false;           // set once a run ended well
};

// The tables that are filled by readers, changed by a conversion and printed by writers, one set for the
// process.
struct SurveyTables {
    ProjectHeader InputHeader;
    PointList InputPoints;
    ChainList InputChains;
    ProjectHeader OutputHeader;
    PointList OutputPoints;
    ChainList OutputChains;
    PointList ConversionPoints;
    bool CoordinatesConverted = false;  // the output set has come through a coordinate conversion
    ConversionOptions Options;
};

SurveyTables& Tables();

// Sets every member to its empty state.
void InitPoint(PointRecord& point);

// Empties the members of InputHeader and erases InputPoints and InputChains, before a reader runs.
void ClearInputTables();

// OutputHeader, OutputPoints and OutputChains become copies of the input. Fault::SubscriptOutOfRange where no
// reader has filled InputPoints.
void CopyInputToOutput();

}  // namespace tarvek
