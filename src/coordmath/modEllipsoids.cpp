#include "coordmath/modEllipsoids.hpp"

#include <cmath>

#include "library/modErrorState.hpp"
#include "platform/modFaults.hpp"

namespace tarvek {
namespace {

constexpr std::string_view SemiminorTooGreat =
    "The computed Ellipsoid Semiminor Axis is greater than the Semimajor Axis.  Check the other ellipsoid "
    "parameters.";
constexpr std::string_view SemimajorTooSmall =
    "The computed Ellipsoid Semimajor Axis is less than the Semiminor Axis.  Check the other ellipsoid "
    "parameters.";
constexpr std::string_view TwoParametersNeeded =
    "Can not compute ellipsoid parameters. Two ellipsoid parameters must be defined in order to compute all "
    "four parameters.";
constexpr std::string_view AnotherPairNeeded =
    "Can not compute ellipsoid parameters. Two ellipsoidal parameters are required in any combination other "
    "than Flattening and Eccentricity.";
constexpr std::string_view UnknownChange = "Can not compute ellipsoid parameters. Unknown parameter change.";

double Refused(std::string_view description, std::string_view source) {
    SET_ErrorState(1, description, source);
    return EllipsoidUnknown;
}

bool ParametersRefused(std::string_view description) {
    SET_ErrorState(1, description, "modEllipsoids.Ellipsoids_GET_Parameters");
    return false;
}

bool IsKnown(double parameter) { return parameter != EllipsoidUnknown; }

struct Parameters {
    double a;
    double b;
    double f;
    double e;
};

using Derivation = double (*)(double, double);
using Member = double Parameters::*;

// From two known parameters to the other two, each by its own derivation.
struct Completion {
    Member known[2];
    Member written[2];
    Derivation derivations[2];
};

constexpr Completion FromAB = {{&Parameters::a, &Parameters::b},
                               {&Parameters::f, &Parameters::e},
                               {Ellipsoids_GET_fab, Ellipsoids_GET_eab}};
constexpr Completion FromAF = {{&Parameters::a, &Parameters::f},
                               {&Parameters::b, &Parameters::e},
                               {Ellipsoids_GET_baf, Ellipsoids_GET_eaf}};
constexpr Completion FromAE = {{&Parameters::a, &Parameters::e},
                               {&Parameters::b, &Parameters::f},
                               {Ellipsoids_GET_bae, Ellipsoids_GET_fae}};
constexpr Completion FromBF = {{&Parameters::b, &Parameters::f},
                               {&Parameters::a, &Parameters::e},
                               {Ellipsoids_GET_abf, Ellipsoids_GET_eaf}};
constexpr Completion FromBE = {{&Parameters::b, &Parameters::e},
                               {&Parameters::a, &Parameters::f},
                               {Ellipsoids_GET_abe, Ellipsoids_GET_fae}};

// The completions in the order in which they are tried when nothing, or an axis, has changed.
constexpr const Completion* Plain[] = {&FromAB, &FromAF, &FromAE, &FromBF, &FromBE};
constexpr const Completion* SemimajorChanged[] = {&FromAB, &FromAF, &FromAE};
constexpr const Completion* SemiminorChanged[] = {&FromAB, &FromBF, &FromBE};

bool Complete(Parameters& parameters, const Completion& completion) {
    Parameters completed = parameters;
    for (int i = 0; i < 2; ++i) {
        const double derived =
            completion.derivations[i](parameters.*completion.known[0], parameters.*completion.known[1]);
        if (!IsKnown(derived)) return false;
        completed.*completion.written[i] = derived;
    }
    parameters = completed;
    return true;
}

template <std::size_t Count>
bool CompleteFromFirstKnown(Parameters& parameters, const Completion* const (&completions)[Count]) {
    for (const Completion* completion : completions)
        if (IsKnown(parameters.*completion->known[0]) && IsKnown(parameters.*completion->known[1]))
            return Complete(parameters, *completion);
    return ParametersRefused(TwoParametersNeeded);
}

bool CompleteParameters(Parameters& parameters, std::string_view changed) {
    if (changed.empty()) {
        const bool onlyShape = !IsKnown(parameters.a) && !IsKnown(parameters.b) && IsKnown(parameters.f) &&
                               IsKnown(parameters.e);
        if (onlyShape) return ParametersRefused(AnotherPairNeeded);
        return CompleteFromFirstKnown(parameters, Plain);
    }
    if (changed == "a") {
        if (!IsKnown(parameters.a))
            return ParametersRefused(
                "Can not compute ellipsod parameters. The semimajor axis changed, but not value was "
                "received.");
        return CompleteFromFirstKnown(parameters, SemimajorChanged);
    }
    if (changed == "b") {
        if (!IsKnown(parameters.b))
            return ParametersRefused(
                "Can not compute ellipsod parameters. The semiminor axis changed, but not value was "
                "received.");
        return CompleteFromFirstKnown(parameters, SemiminorChanged);
    }
    // The semimajor axis is not tested here: an unknown one goes into the derivation as -1.
    if (changed == "f") {
        if (!IsKnown(parameters.f))
            return ParametersRefused(
                "Can not compute ellipsod parameters. The flattening changed, but not value was received.");
        return Complete(parameters, FromAF);
    }
    if (changed == "e") {
        if (!IsKnown(parameters.e))
            return ParametersRefused(
                "Can not compute ellipsod parameters. The eccentricity changed, but not value was received.");
        return Complete(parameters, FromAE);
    }
    return ParametersRefused(UnknownChange);
}

}  // namespace

double Ellipsoids_GET_fab(double a, double b) {
    if (a < b)
        return Refused(
            "Can not compute the Ellipsoid Flattening. The Semimajor Axis must be greater than the Semiminor "
            "Axis.",
            "modEllipsoids.Ellipsoids_GET_fab");
    return RequireFinite((a - b) / a);
}

double Ellipsoids_GET_eab(double a, double b) {
    if (a < b)
        return Refused(
            "Can not compute the Ellipsoid Eccentricity. The Semimajor Axis must be greater than the "
            "Semiminor "
            "Axis.",
            "modEllipsoids.Ellipsoids_GET_eab");
    return RequireFinite(std::sqrt(a * a - b * b) / a);
}

double Ellipsoids_GET_baf(double a, double f) {
    const double b = RequireFinite((a * -1.0) * f + a);
    return a < b ? Refused(SemiminorTooGreat, "modEllipsoids.Ellipsoids_GET_baf") : b;
}

double Ellipsoids_GET_bae(double a, double e) {
    const double b = RequireFinite(std::sqrt(a * a - e * e * (a * a)));
    return a < b ? Refused(SemiminorTooGreat, "modEllipsoids.Ellipsoids_GET_bae") : b;
}

double Ellipsoids_GET_abf(double b, double f) {
    const double a = RequireFinite(b / (1.0 - f));
    return a < b ? Refused(SemimajorTooSmall, "modEllipsoids.Ellipsoids_GET_abf") : a;
}

double Ellipsoids_GET_abe(double b, double e) {
    const double a = RequireFinite(std::sqrt(b * b / (1.0 - e * e)));
    return a < b ? Refused(SemimajorTooSmall, "modEllipsoids.Ellipsoids_GET_abe") : a;
}

double Ellipsoids_GET_eaf(double /*a*/, double f) { return RequireFinite(std::sqrt(2 * f - f * f)); }

double Ellipsoids_GET_fae(double /*a*/, double e) { return RequireFinite(1.0 - std::sqrt(1.0 - e * e)); }

bool Ellipsoids_GET_Parameters(double& a, double& b, double& f, double& e, std::string_view changed) {
    Parameters parameters = {a, b, f, e};
    if (!CompleteParameters(parameters, changed)) return false;
    a = parameters.a;
    b = parameters.b;
    f = parameters.f;
    e = parameters.e;
    return true;
}

}  // namespace tarvek
