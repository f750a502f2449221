#include "coordmath/modMath.hpp"

#include <cmath>

#include "platform/modFaults.hpp"

namespace tarvek {

double ASin(double x) {
    if (std::fabs(x) == 1.0) return std::copysign(2 * std::atan(1.0), x);
    return RequireFinite(std::atan(x / std::sqrt(1.0 - x * x)));
}

double Sinh(double x) { return RequireFinite((std::exp(x) - std::exp(x * -1.0)) / 2.0); }

double Cosh(double x) { return RequireFinite((std::exp(x) + std::exp(x * -1.0)) / 2.0); }

double ACosh(double x) { return RequireFinite(std::log(std::sqrt(x * x - 1.0) + x)); }

double RequireNoPole(double phi) {
    if (std::fabs(std::cos(phi)) < 5e-15) RaiseFault(Fault::Overflow);
    return phi;
}

}  // namespace tarvek
