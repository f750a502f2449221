// The parameters of an ellipsoid from each other: values, which of them are taken, and every refusal.

#include "coordmath/modEllipsoids.hpp"

#include <string>
#include <string_view>

#include "coordmath/projectionTest.hpp"
#include "library/modErrorState.hpp"

namespace tarvek::test {
namespace {

constexpr double Unknown = -1.0;

constexpr std::string_view TwoParameters =
    "Can not compute ellipsoid parameters. Two ellipsoid parameters must be defined in order to compute all "
    "four "
    "parameters.";
constexpr std::string_view OtherThanShape =
    "Can not compute ellipsoid parameters. Two ellipsoidal parameters are required in any combination other "
    "than "
    "Flattening and Eccentricity.";
constexpr std::string_view ParametersSource = "modEllipsoids.Ellipsoids_GET_Parameters";

struct Four {
    double a, b, f, e;
};

// An ellipsoid by its semimajor axis and the inverse of its flattening.
struct Body {
    const char* name;
    double a;
    Real inverseFlattening;

    Four Parameters() const {
        const Real f = inverseFlattening == 0 ? 0 : 1 / inverseFlattening;
        const Real b = a - a * f;
        return {a, static_cast<double>(b), static_cast<double>(f),
                static_cast<double>(std::sqrt((1 - b / a) * (1 + b / a)))};
    }
};

constexpr Body Bodies[] = {
    {"GRS 80", 6378137, 298.257222101L},
    {"Clarke 1866", 6378206.4, 294.978698214L},
    {"Bessel 1841", 6377397.155, 299.1528128L},
    {"a flat one", 1000, 1.25L},
};

void ExpectLength(double actual, double expected) { EXPECT_NEAR(actual / expected, 1, 1e-15); }
// An eccentricity takes its digits from what remains after the leading ones of the axes cancel.
void ExpectShape(double actual, double expected) { EXPECT_NEAR(actual, expected, 2e-15); }

void ExpectFour(const Four& actual, const Four& expected) {
    ExpectLength(actual.a, expected.a);
    ExpectLength(actual.b, expected.b);
    ExpectShape(actual.f, expected.f);
    ExpectShape(actual.e, expected.e);
}

void ExpectUntouched(const Four& actual, const Four& expected) {
    EXPECT_EQ(actual.a, expected.a);
    EXPECT_EQ(actual.b, expected.b);
    EXPECT_EQ(actual.f, expected.f);
    EXPECT_EQ(actual.e, expected.e);
}

bool Complete(Four& four, std::string_view changed) {
    return Ellipsoids_GET_Parameters(four.a, four.b, four.f, four.e, changed);
}

void ExpectErrorState(std::string_view description, std::string_view source) {
    EXPECT_EQ(GET_ErrorState().number, 1);
    EXPECT_EQ(GET_ErrorState().description, description);
    EXPECT_EQ(GET_ErrorState().source, source);
}

class Ellipsoids : public ::testing::Test {
  protected:
    Ellipsoids() { CLEAR_ErrorState(); }
    ~Ellipsoids() override {
        CLEAR_ErrorState();
        ExpectNothingTold(prompts_);  // the caller shows what was recorded
    }

    static void ExpectRefused(const Four& given, std::string_view changed, std::string_view description,
                              std::string_view source = ParametersSource) {
        SCOPED_TRACE(::testing::Message() << "changed: " << changed);
        CLEAR_ErrorState();
        Four four = given;
        EXPECT_FALSE(Complete(four, changed));
        ExpectUntouched(four, given);
        ExpectErrorState(description, source);
    }

  private:
    ScriptedPrompts prompts_;
};

// ---- One from two others ----

TEST_F(Ellipsoids, EveryParameterFollowsFromTwoOthers) {
    for (const Body& body : Bodies) {
        SCOPED_TRACE(body.name);
        const auto [a, b, f, e] = body.Parameters();
        ExpectShape(Ellipsoids_GET_fab(a, b), f);
        ExpectShape(Ellipsoids_GET_eab(a, b), e);
        ExpectLength(Ellipsoids_GET_baf(a, f), b);
        ExpectLength(Ellipsoids_GET_bae(a, e), b);
        ExpectLength(Ellipsoids_GET_abf(b, f), a);
        ExpectLength(Ellipsoids_GET_abe(b, e), a);
        ExpectShape(Ellipsoids_GET_eaf(a, f), e);
        ExpectShape(Ellipsoids_GET_fae(a, e), f);
    }
    EXPECT_EQ(GET_ErrorState().number, 0);
}

TEST_F(Ellipsoids, TheAxisOfAShapeFromAShapeIsNotLookedAt) {
    for (const double axis : {Unknown, 0.0, NotANumber}) {
        EXPECT_EQ(Ellipsoids_GET_eaf(axis, 0.5), std::sqrt(0.75));
        EXPECT_EQ(Ellipsoids_GET_fae(axis, 0.6), 1 - 0.8);
    }
}

TEST_F(Ellipsoids, ASphereIsAnEllipsoid) {
    EXPECT_EQ(Ellipsoids_GET_fab(6371000, 6371000), 0);
    EXPECT_EQ(Ellipsoids_GET_eab(6371000, 6371000), 0);
    EXPECT_EQ(Ellipsoids_GET_baf(6371000, 0), 6371000);
    EXPECT_EQ(Ellipsoids_GET_bae(6371000, 0), 6371000);
    EXPECT_EQ(Ellipsoids_GET_abf(6371000, 0), 6371000);
    EXPECT_EQ(Ellipsoids_GET_abe(6371000, 0), 6371000);
    for (const std::string_view changed : {"", "a", "f"}) {
        Four sphere = {6371000, Unknown, 0, Unknown};
        EXPECT_TRUE(Complete(sphere, changed));
        ExpectUntouched(sphere, {6371000, 6371000, 0, 0});
    }
    EXPECT_EQ(GET_ErrorState().number, 0);
}

// ---- What a derivation refuses ----

struct Refusal {
    double (*derive)(double, double);
    double first;
    double second;
    const char* description;
    const char* source;
};

// The last of them: the square of 1e-200 is 0, and so is the axis made of it.
constexpr Refusal Refusals[] = {
    {Ellipsoids_GET_fab, 6356752, 6378137,
     "Can not compute the Ellipsoid Flattening. The Semimajor Axis must be greater than the Semiminor Axis.",
     "modEllipsoids.Ellipsoids_GET_fab"},
    {Ellipsoids_GET_eab, 6356752, 6378137,
     "Can not compute the Ellipsoid Eccentricity. The Semimajor Axis must be greater than the Semiminor "
     "Axis.",
     "modEllipsoids.Ellipsoids_GET_eab"},
    {Ellipsoids_GET_baf, 6378137, -0.001,
     "The computed Ellipsoid Semiminor Axis is greater than the Semimajor Axis.  Check the other ellipsoid "
     "parameters.",
     "modEllipsoids.Ellipsoids_GET_baf"},
    {Ellipsoids_GET_bae, -6378137, 0.08,
     "The computed Ellipsoid Semiminor Axis is greater than the Semimajor Axis.  Check the other ellipsoid "
     "parameters.",
     "modEllipsoids.Ellipsoids_GET_bae"},
    {Ellipsoids_GET_abf, 6356752, -0.001,
     "The computed Ellipsoid Semimajor Axis is less than the Semiminor Axis.  Check the other ellipsoid "
     "parameters.",
     "modEllipsoids.Ellipsoids_GET_abf"},
    {Ellipsoids_GET_abe, 1e-200, 0.08,
     "The computed Ellipsoid Semimajor Axis is less than the Semiminor Axis.  Check the other ellipsoid "
     "parameters.",
     "modEllipsoids.Ellipsoids_GET_abe"},
};

TEST_F(Ellipsoids, AxesInTheWrongOrderAreRecordedAndGiveMinusOne) {
    for (const Refusal& refusal : Refusals) {
        SCOPED_TRACE(refusal.source);
        CLEAR_ErrorState();
        EXPECT_EQ(refusal.derive(refusal.first, refusal.second), -1.0);
        ExpectErrorState(refusal.description, refusal.source);
    }
}

TEST_F(Ellipsoids, WhatIsNotFiniteIsAnOverflow) {
    ExpectOverflow([] { Ellipsoids_GET_fab(0, 0); });
    ExpectOverflow([] { Ellipsoids_GET_eab(0, 0); });
    ExpectOverflow([] { Ellipsoids_GET_eab(1, -2); });
    ExpectOverflow([] { Ellipsoids_GET_baf(Infinite, 0.5); });
    ExpectOverflow([] { Ellipsoids_GET_bae(6378137, 1.5); });
    ExpectOverflow([] { Ellipsoids_GET_abf(6356752, 1); });
    ExpectOverflow([] { Ellipsoids_GET_abe(6356752, 1); });
    ExpectOverflow([] { Ellipsoids_GET_abe(6356752, 1.5); });
    ExpectOverflow([] { Ellipsoids_GET_eaf(6378137, -0.1); });
    ExpectOverflow([] { Ellipsoids_GET_eaf(6378137, 2.1); });
    ExpectOverflow([] { Ellipsoids_GET_fae(6378137, 1.5); });
    EXPECT_EQ(GET_ErrorState().number, 0);
}

// ---- All four ----

TEST_F(Ellipsoids, TwoThatAreKnownGiveTheOtherTwo) {
    for (const Body& body : Bodies) {
        SCOPED_TRACE(body.name);
        const Four expected = body.Parameters();
        const auto [a, b, f, e] = expected;
        for (const Four& given :
             {Four{a, b, Unknown, Unknown}, Four{a, Unknown, f, Unknown}, Four{a, Unknown, Unknown, e},
              Four{Unknown, b, f, Unknown}, Four{Unknown, b, Unknown, e}}) {
            Four four = given;
            EXPECT_TRUE(Complete(four, ""));
            ExpectFour(four, expected);
        }
    }
}

// 100, 80, 0.2 and 0.6 fit each other; whatever else is given shows which pair was taken.
TEST_F(Ellipsoids, TheFirstKnownPairIsTakenAndTheRestIsWrittenOver) {
    struct Row {
        Four given;
        Four expected;
    };
    constexpr double Wrong = 0.9;
    for (const Row& row : {Row{{100, 80, Wrong, Wrong}, {100, 80, 0.2, 0.6}},
                           Row{{100, 80, Unknown, Wrong}, {100, 80, 0.2, 0.6}},
                           Row{{100, 80, Wrong, Unknown}, {100, 80, 0.2, 0.6}},
                           Row{{100, Unknown, 0.2, Wrong}, {100, 80, 0.2, 0.6}},
                           Row{{Unknown, 80, 0.2, Wrong}, {100, 80, 0.2, 0.6}}}) {
        Four four = row.given;
        EXPECT_TRUE(Complete(four, ""));
        ExpectFour(four, row.expected);
        EXPECT_EQ(four.a == row.given.a, row.given.a != Unknown);
        EXPECT_EQ(four.b == row.given.b, row.given.b != Unknown);
    }
}

TEST_F(Ellipsoids, FlatteningAndEccentricityAloneAreNotEnough) {
    ExpectRefused({Unknown, Unknown, 0.2, 0.6}, "", OtherThanShape);
}

TEST_F(Ellipsoids, OneParameterOrNoneIsNotEnough) {
    ExpectRefused({100, Unknown, Unknown, Unknown}, "", TwoParameters);
    ExpectRefused({Unknown, 80, Unknown, Unknown}, "", TwoParameters);
    ExpectRefused({Unknown, Unknown, 0.2, Unknown}, "", TwoParameters);
    ExpectRefused({Unknown, Unknown, Unknown, 0.6}, "", TwoParameters);
    ExpectRefused({Unknown, Unknown, Unknown, Unknown}, "", TwoParameters);
}

// ---- After one has changed ----

TEST_F(Ellipsoids, WhatHasChangedIsKeptAndTheOthersFollow) {
    struct Row {
        const char* changed;
        Four given;
    };
    constexpr double Old = 0.9;
    for (const Row& row : {
             Row{"a", {100, 80, Old, Old}},
             Row{"a", {100, 80, Unknown, Unknown}},
             Row{"a", {100, Unknown, 0.2, Old}},
             Row{"a", {100, Unknown, Unknown, 0.6}},
             Row{"b", {100, 80, Old, Old}},
             Row{"b", {100, 80, Unknown, Unknown}},
             Row{"b", {Unknown, 80, 0.2, Old}},
             Row{"b", {Unknown, 80, Unknown, 0.6}},
             Row{"f", {100, Old, 0.2, Old}},
             Row{"f", {100, Unknown, 0.2, Unknown}},
             Row{"e", {100, Old, Old, 0.6}},
             Row{"e", {100, Unknown, Unknown, 0.6}},
         }) {
        SCOPED_TRACE(::testing::Message() << row.changed << ": " << row.given.a << ' ' << row.given.b << ' '
                                          << row.given.f << ' ' << row.given.e);
        Four four = row.given;
        EXPECT_TRUE(Complete(four, row.changed));
        ExpectFour(four, {100, 80, 0.2, 0.6});
    }
    EXPECT_EQ(GET_ErrorState().number, 0);
}

TEST_F(Ellipsoids, AChangedParameterWithoutAValueIsRefused) {
    const auto text = [](const std::string& parameter) {
        return "Can not compute ellipsod parameters. The " + parameter +
               " changed, but not value was received.";
    };
    ExpectRefused({Unknown, 80, 0.2, 0.6}, "a", text("semimajor axis"));
    ExpectRefused({100, Unknown, 0.2, 0.6}, "b", text("semiminor axis"));
    ExpectRefused({100, 80, Unknown, 0.6}, "f", text("flattening"));
    ExpectRefused({100, 80, 0.2, Unknown}, "e", text("eccentricity"));
}

TEST_F(Ellipsoids, AChangedAxisAloneIsNotEnough) {
    ExpectRefused({100, Unknown, Unknown, Unknown}, "a", TwoParameters);
    ExpectRefused({Unknown, 80, Unknown, Unknown}, "b", TwoParameters);
}

TEST_F(Ellipsoids, AnyOtherChangeIsUnknown) {
    for (const std::string_view changed : {"c", "A", "ab", " ", "a "})
        ExpectRefused({100, 80, 0.2, 0.6}, changed,
                      "Can not compute ellipsoid parameters. Unknown parameter change.");
}

// An unknown axis goes into the formula as -1, and the semiminor axis comes out above it.
TEST_F(Ellipsoids, AChangedShapeTakesTheSemimajorAxisUntested) {
    ExpectRefused({Unknown, 80, 0.2, 0.6}, "f", Refusals[2].description, Refusals[2].source);
    ExpectRefused({Unknown, 80, 0.2, 0.6}, "e", Refusals[3].description, Refusals[3].source);
}

TEST_F(Ellipsoids, ARefusedDerivationLeavesAllFourAndItsOwnReason) {
    ExpectRefused({80, 100, Unknown, Unknown}, "", Refusals[0].description, Refusals[0].source);
    ExpectRefused({80, 100, 0.2, 0.6}, "a", Refusals[0].description, Refusals[0].source);
    ExpectRefused({80, 100, 0.2, 0.6}, "b", Refusals[0].description, Refusals[0].source);
    ExpectRefused({100, Unknown, -0.2, Unknown}, "", Refusals[2].description, Refusals[2].source);
    ExpectRefused({100, Unknown, -0.2, Unknown}, "f", Refusals[2].description, Refusals[2].source);
    ExpectRefused({Unknown, 80, -0.2, Unknown}, "", Refusals[4].description, Refusals[4].source);
    ExpectRefused({Unknown, 80, -0.2, Unknown}, "b", Refusals[4].description, Refusals[4].source);
    ExpectRefused({Unknown, 1e-200, Unknown, 0.6}, "", Refusals[5].description, Refusals[5].source);
}

TEST_F(Ellipsoids, AFaultOfTheSecondDerivationLeavesAllFourToo) {
    const Four given = {100, Unknown, 3, Unknown};  // an axis of -200, and the root of -3
    Four four = given;
    ExpectOverflow([&] { Complete(four, ""); });
    ExpectUntouched(four, given);
}

}  // namespace
}  // namespace tarvek::test
