#include "geometry/rounded_trigonometry.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

#include "geometry/trigonometry.h"
#include "support/infinity.h"

namespace quillon::geometry {
namespace {

using testing::kInfinity;

struct Angle {
  double x, sine, cosine;
};

struct Tangent {
  double x, arc;
};

/// Computed to 1,500 bits: typical angles, angles next to multiples of a quarter turn, huge and
/// tiny ones, some random ones, and those around which it changes how they are reduced: 0.785,
/// 2^20, and 2^-20 from a multiple of a quarter turn.
constexpr std::array<Angle, 90> kAngles = {{
    {0x1.0c152382d7361p-2, 0x1.0907dc193068cp-2, 0x1.ee8dd4748bf15p-1},
    {0x1.0c152382d7361p-1, 0x1.ffffffffffff8p-2, 0x1.bb67ae8584cadp-1},
    {0x1.921fb54442d11p-1, 0x1.6a09e667f3bc7p-1, 0x1.6a09e667f3bd2p-1},
    {0x1.0c152382d7361p+0, 0x1.bb67ae8584ca6p-1, 0x1.0000000000008p-1},
    {0x1.921fb54442d11p+0, 0x1.0000000000000p+0, 0x1.d1a62633145c0p-50},
    {0x1.0c152382d7361p+1, 0x1.bb67ae8584cb3p-1, -0x1.fffffffffffe1p-2},
    {0x1.2d97c7f3321cdp+1, 0x1.6a09e667f3bdbp-1, -0x1.6a09e667f3bbep-1},
    {0x1.4f1a6c638d039p+1, 0x1.0000000000014p-1, -0x1.bb67ae8584c9fp-1},
    {0x1.921fb54442d11p+1, 0x1.d1a62633145c0p-49, -0x1.0000000000000p+0},
    {0x1.d524fe24f89e9p+1, -0x1.fffffffffffc4p-2, -0x1.bb67ae8584cbcp-1},
    {0x1.f6a7a29553855p+1, -0x1.6a09e667f3bb2p-1, -0x1.6a09e667f3be7p-1},
    {0x1.2d97c7f3321cdp+2, -0x1.0000000000000p+0, -0x1.4d3c9ca64f450p-48},
    {0x1.4f1a6c638d039p+2, -0x1.bb67ae8584cc2p-1, 0x1.fffffffffffaep-2},
    {0x1.5fdbbe9bba76fp+2, -0x1.6a09e667f3bf0p-1, 0x1.6a09e667f3ba9p-1},
    {0x1.709d10d3e7ea5p+2, -0x1.000000000002ep-1, 0x1.bb67ae8584c90p-1},
    {0x1.921fb54442d11p+2, -0x1.d1a62633145c0p-48, 0x1.0000000000000p+0},
    {0x1.f6a7a29553855p+2, 0x1.0000000000000p+0, 0x1.2b07d7dfecb98p-47},
    {0x1.921fb54442d11p+3, -0x1.d1a62633145c0p-47, 0x1.0000000000000p+0},
    {-0x1.921fb54442d11p+0, -0x1.0000000000000p+0, 0x1.d1a62633145c0p-50},
    {-0x1.921fb54442d11p+1, -0x1.d1a62633145c0p-49, -0x1.0000000000000p+0},
    {0x1.1df46a2529d34p-6, 0x1.1df0b2b89dd19p-6, 0x1.ffec097f5af8ap-1},
    {0x1.1df46a2529d34p-8, 0x1.1df42eae296ddp-8, 0x1.fffec0960384ep-1},
    {0x1.921fb51ec7c48p+1, 0x1.2bd868234c4c6p-26, -0x1.fffffffffffffp-1},
    {0x1.921fb54442d11p+2, -0x1.d1a62633145c0p-48, 0x1.0000000000000p+0},
    {0x1.921fb54442d11p+0, 0x1.0000000000000p+0, 0x1.d1a62633145c0p-50},
    {0x1.2d97c7f3321cdp+2, -0x1.0000000000000p+0, -0x1.4d3c9ca64f450p-48},
    {0x1.921fb54442d18p+0, 0x1.0000000000000p+0, 0x1.1a62633145c07p-54},
    {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53, -0x1.0000000000000p+0},
    {0x1.2d97c7f3321d2p+2, -0x1.0000000000000p+0, -0x1.a79394c9e8a0ap-53},
    {0x1.921fb54442d18p+2, -0x1.1a62633145c07p-52, 0x1.0000000000000p+0},
    {0x1.3a28c59d5433bp+8, 0x1.1b19140c0c0d5p-49, 0x1.0000000000000p+0},
    {0x1.6ac5b262ca1ffp+849, 0x1.0000000000000p+0, -0x1.14ae72e6ba22fp-61},
    {0x1.0f0cf064dd592p+73, -0x1.b453ab76bf397p-1, 0x1.0be2cef01c8f4p-1},
    {0x1.7e43c8800759cp+996, -0x1.a2c16b010e385p-1, -0x1.2699022adc4c1p-1},
    {0x1.fffffffffffffp+1023, 0x1.452fc98b34e97p-8, -0x1.fffe62ecfab75p-1},
    {0x1.6000000000000p+4, -0x1.220a29f6eb9f4p-7, -0x1.fffadd8d4acdap-1},
    {0x1.6300000000000p+8, -0x1.f9bd0307d1de3p-16, -0x1.fffffffc18e4cp-1},
    {0x1.9639000000000p+15, 0x1.40efdf1ef7eb6p-17, -0x1.ffffffff9b69ep-1},
    {0x1.91eb851eb851fp-1, 0x1.69e4fd79ac743p-1, 0x1.6a2ecb934b59ap-1},
    {0x1.921fb54442d18p-1, 0x1.6a09e667f3bccp-1, 0x1.6a09e667f3bcdp-1},
    {0x1.921fb54442d19p-1, 0x1.6a09e667f3bcdp-1, 0x1.6a09e667f3bccp-1},
    {0x1.0000000000000p-7, 0x1.fffeaaaaeeeefp-8, 0x1.fffc000155552p-1},
    {0x1.0000000000001p-7, 0x1.fffeaaaaeeef1p-8, 0x1.fffc000155552p-1},
    {0x1.0000000000000p-27, 0x1.0000000000000p-27, 0x1.0000000000000p+0},
    {0x1.0000000000000p-26, 0x1.0000000000000p-26, 0x1.fffffffffffffp-1},
    {0x1.56e1fc2f8f359p-997, 0x1.56e1fc2f8f359p-997, 0x1.0000000000000p+0},
    {0x0.0000000000001p-1022, 0x0.0000000000001p-1022, 0x1.0000000000000p+0},
    {0x1.0000000000000p+0, 0x1.aed548f090ceep-1, 0x1.14a280fb5068cp-1},
    {-0x1.4000000000000p+1, -0x1.326af0dcfcab1p-1, -0x1.9a2f7ef858b7dp-1},
    {0x1.f767c482c9b00p+0, 0x1.d8732a8096d19p-1, -0x1.8aa3c347896dep-2},
    {0x1.ef2e045bc8fb8p+1, -0x1.544a72d574ae3p-1, -0x1.7e8d5ae595700p-1},
    {0x1.2e4738d8608fep+2, -0x1.fff87c4c02b97p-1, 0x1.5ee012e9abb66p-7},
    {0x1.c511afebb6a18p+2, 0x1.6ddd08efe65ccp-1, 0x1.662c4f5fdb2f4p-1},
    {0x1.eb4ff1a6eb8c8p+1, -0x1.48941df6e7ac4p-1, -0x1.88a862dc52efep-1},
    {0x1.b075f6c3d8588p+2, 0x1.d36ac303a0359p-2, 0x1.c78c62bee1828p-1},
    {-0x1.e24c74146f792p+2, -0x1.e651b8c34fd6dp-1, 0x1.403c27c54ecc9p-2},
    {-0x1.199e84e56b1f0p-1, -0x1.0ba1daa6206f3p-1, 0x1.b47b85dd98929p-1},
    {0x1.c5ff4d9fe0f50p+2, 0x1.7304f21704f5ap-1, 0x1.60d45aef4d928p-1},
    {0x1.3119920d46410p+1, 0x1.5ffc19defc929p-1, -0x1.73d2213b03ac4p-1},
    {0x1.9a85a89413b44p+2, 0x1.0bf923c8b0722p-3, 0x1.fb992160ca714p-1},
    {-0x1.8c13bc5069136p+2, 0x1.826ae90bc1218p-4, 0x1.fdb76bb355cf6p-1},
    {0x1.7814e8bbca4e2p+257, 0x1.b78d41be72b09p-4, -0x1.fd0b1ac3e5456p-1},
    {0x1.617959d1667d2p+109, -0x1.23200ba2a29a8p-2, 0x1.eadf4991862b2p-1},
    {0x1.92edcf47fa846p+18, 0x1.ee94c5b3073c3p-1, 0x1.08d405226cd69p-2},
    {0x1.bb2edb26ef735p+422, -0x1.6f1967d1eee5cp-4, -0x1.fdf0867060e16p-1},
    {0x1.478c2805d3905p+943, -0x1.34edfab0a05e1p-1, 0x1.984c0cd97c2d5p-1},
    {0x1.de11cc9880d2ap+403, 0x1.eb4dc5d134bf1p-2, -0x1.c13878ff05693p-1},
    {0x1.f6a7a0955385ep+2, 0x1.ffffffffffc00p-1, 0x1.00000002c1eb5p-21},
    {0x1.fffff538ba098p+19, 0x1.6a160554329b0p-21, 0x1.ffffffffff7ffp-1},
    {0x1.2d97cff3321d2p+2, -0x1.fffffffffc000p-1, 0x1.ffffffff2ae0ep-20},
    {0x1.88b2f702a940ap+10, -0x1.fffffb4f103e2p-22, 0x1.ffffffffffc00p-1},
    {0x1.ffffc2f4c360fp+19, -0x1.ffffffffff800p-1, 0x1.6a0e5f84bfcc3p-21},
    {0x1.88b2f70ca940ap+10, 0x1.000000961d4aep-19, 0x1.fffffffffc000p-1},
    {0x1.921fb6ae4cb7ep+3, 0x1.6a09e65b96584p-21, 0x1.ffffffffff800p-1},
    {0x1.921fc0949204cp+0, 0x1.ffffffffff800p-1, -0x1.6a09e66772b0ap-21},
    {0x1.921fb44442d18p+3, -0x1.00000004697eep-21, 0x1.ffffffffffc00p-1},
    {0x1.921fd54442d18p+0, 0x1.fffffffffc000p-1, -0x1.ffffffffb8121p-20},
    {0x1.fffff538b79f7p+19, -0x1.fff3f5579a785p-22, 0x1.ffffffffffc00p-1},
    {0x1.fffff538b49f7p+19, -0x1.fffcfd55e54e2p-20, 0x1.fffffffffc001p-1},
    {0x1.921fb14442d18p+3, -0x1.0000000119b7cp-19, 0x1.fffffffffc000p-1},
    {0x1.921fb14442d18p+1, 0x1.000000011a57cp-21, -0x1.ffffffffffc00p-1},
    {0x1.0000000000000p+20, 0x1.526ccb2fc8656p-2, 0x1.e33ada92fe2aep-1},
    {0x1.fffffffffffffp+19, 0x1.526ccb2de52a8p-2, 0x1.e33ada9352c61p-1},
    {0x1.0000000000001p+20, 0x1.526ccb338edb1p-2, 0x1.e33ada9254f48p-1},
    {0x1.ffffe80000000p+19, -0x1.9b27986499212p-2, 0x1.d4ea6d1e88510p-1},
    {0x1.91eb851eb851ep-1, 0x1.69e4fd79ac742p-1, 0x1.6a2ecb934b59ap-1},
    {0x1.2d97c7f3321d2p+1, 0x1.6a09e667f3bcdp-1, -0x1.6a09e667f3bccp-1},
    {0x1.f6a7a2955385ep+1, -0x1.6a09e667f3bccp-1, -0x1.6a09e667f3bcep-1},
    {0x1.a862329161f9bp+15, 0x1.6e43e8d3b625dp-3, -0x1.f7bede55cbba6p-1},
    {0x1.e847e80000000p+19, -0x1.ca0ab4001fd29p-1, 0x1.c990f0d8458fbp-2},
}};

constexpr std::array<Tangent, 45> kTangents = {{
    {0x0.0p+0, 0x0.0p+0},
    {0x1.56e1fc2f8f359p-997, 0x1.56e1fc2f8f359p-997},
    {0x1.0000000000000p-27, 0x1.0000000000000p-27},
    {0x1.0000000000000p-26, 0x1.fffffffffffffp-27},
    {0x1.0000000000000p-7, 0x1.fffd555bbba97p-8},
    {0x1.5555555555555p-2, 0x1.4978fa3269ee1p-2},
    {0x1.0000000000000p-1, 0x1.dac670561bb4fp-2},
    {0x1.a827999fcef32p-2, 0x1.921fb54442d18p-2},
    {0x1.0000000000000p+0, 0x1.921fb54442d18p-1},
    {0x1.0000000000001p+0, 0x1.921fb54442d19p-1},
    {0x1.fffffffffffffp-1, 0x1.921fb54442d18p-1},
    {0x1.0000000000000p+1, 0x1.1b6e192ebbe44p+0},
    {0x1.8000000000000p+1, 0x1.3fc176b7a8560p+0},
    {0x1.0000000000000p+6, 0x1.8e1fca98cb633p+0},
    {0x1.fc00000000000p+6, 0x1.901bafef076bbp+0},
    {0x1.0000000000000p+7, 0x1.901fb7eee715ep+0},
    {0x1.0200000000000p+7, 0x1.9023afef06c10p+0},
    {0x1.e848000000000p+19, 0x1.921fa47d4b30dp+0},
    {0x1.c6bf526340000p+49, 0x1.921fb54442d14p+0},
    {0x1.0000000000000p+60, 0x1.921fb54442d18p+0},
    {0x1.0000000000000p+61, 0x1.921fb54442d18p+0},
    {0x1.7e43c8800759cp+996, 0x1.921fb54442d18p+0},
    {-0x1.0000000000000p+0, -0x1.921fb54442d18p-1},
    {-0x1.999999999999ap-3, -0x1.94441f8f7260cp-3},
    {-0x1.d000000000000p+2, -0x1.6f08f07435fecp+0},
    {-0x1.5c90b69e793a6p-1, -0x1.32080f64ff1c6p-1},
    {0x1.30474d09350f2p-1, 0x1.128a8de966da8p-1},
    {-0x1.71e6f430e7cb8p-1, -0x1.40547ff76a5b2p-1},
    {0x1.e115e4e3c1808p-3, 0x1.d884c27deabb3p-3},
    {-0x1.7e428e6f12bb6p-1, -0x1.485b6d956f3dcp-1},
    {-0x1.fe2ebb038a73cp-1, -0x1.9136a8f28d889p-1},
    {0x1.7c518680ae19cp-1, 0x1.471bb5758c8b9p-1},
    {-0x1.2984441cfae1cp-1, -0x1.0d83e7289dae8p-1},
    {-0x1.2358e7851a8e4p-1, -0x1.08e108ecc26bcp-1},
    {0x1.edffcc953ac8ap-1, 0x1.88f6a12f4e20ep-1},
    {0x1.29ed1c40a600ap+5, 0x1.8b4056e3632aep+0},
    {-0x1.511c9a71450d0p+4, -0x1.85fb91ff217cfp+0},
    {0x1.712eb12fe3910p+5, 0x1.8c93cc2c8ea73p+0},
    {0x1.f60f7679ca500p+1, 0x1.5237dc1e49071p+0},
    {0x1.1c875d0d2562cp+4, 0x1.83be471867196p+0},
    {-0x1.d85a4f93aa90ap+4, -0x1.8974a8074a142p+0},
    {0x1.60c7e290db0dap+5, 0x1.8c51ce05765bdp+0},
    {0x1.3106f0676034cp+4, 0x1.84b5350705604p+0},
    {0x1.75405f048277ap+5, 0x1.8ca345ac9e929p+0},
    {0x1.3afe4baa52858p+5, 0x1.8b9f9fd07238ap+0},
}};

/// Number of doubles between two of the same sign.
std::int64_t distance(double a, double b) {
  return std::abs(std::bit_cast<std::int64_t>(a) - std::bit_cast<std::int64_t>(b));
}

TEST(RoundedTrigonometry, GivesTheNearestDouble) {
  for (const Angle& angle : kAngles) {
    EXPECT_EQ(roundedSine(angle.x), angle.sine) << angle.x;
    EXPECT_EQ(roundedSine(-angle.x), -angle.sine) << angle.x;
    EXPECT_EQ(roundedCosine(angle.x), angle.cosine) << angle.x;
    EXPECT_EQ(roundedCosine(-angle.x), angle.cosine) << angle.x;
  }
  for (const Tangent& tangent : kTangents) {
    EXPECT_EQ(roundedArcTangent(tangent.x), tangent.arc) << tangent.x;
    EXPECT_EQ(roundedArcTangent(-tangent.x), -tangent.arc) << tangent.x;
  }
}

TEST(RoundedTrigonometry, GivesDirectionsInAllQuarters) {
  for (const Tangent& tangent : kTangents) {
    EXPECT_EQ(roundedDirection(tangent.x, 1.0), tangent.arc) << tangent.x;
    EXPECT_EQ(roundedDirection(std::ldexp(-tangent.x, 20), 0x1p20), -tangent.arc) << tangent.x;
  }
  EXPECT_EQ(roundedDirection(1.0, -1.0), 0x1.2d97c7f3321d2p+1);
  EXPECT_EQ(roundedDirection(-1.0, -1.0), -0x1.2d97c7f3321d2p+1);
  EXPECT_EQ(roundedDirection(3.0, -4.0), 0x1.3fc176b7a8560p+1);
  EXPECT_EQ(roundedDirection(0x1p1023, 0x1p1023), 0x1.921fb54442d18p-1);
  EXPECT_EQ(roundedDirection(0x1p-1074, 0x1p-1073), 0x1.dac670561bb4fp-2);
}

TEST(RoundedTrigonometry, GivesTheDirectionsOfTheCLibraryAtTheEdges) {
  constexpr double kEdges[] = {0.0, 1.0, kInfinity, 5e-324, 1e-300, 1e308};
  for (const double y : kEdges) {
    for (const double x : kEdges) {
      for (const double signedY : {y, -y}) {
        for (const double signedX : {x, -x}) {
          const double direction = roundedDirection(signedY, signedX);
          EXPECT_EQ(direction, std::atan2(signedY, signedX)) << signedY << ' ' << signedX;
          EXPECT_EQ(std::signbit(direction), std::signbit(signedY)) << signedY << ' ' << signedX;
        }
      }
    }
  }
  EXPECT_TRUE(std::isnan(roundedDirection(std::nan(""), 1.0)));
  EXPECT_TRUE(std::isnan(roundedDirection(1.0, std::nan(""))));
}

TEST(RoundedTrigonometry, KeepsTheSignOfZeroAndKnowsWhatIsNotFinite) {
  EXPECT_TRUE(std::signbit(roundedSine(-0.0)));
  EXPECT_TRUE(std::signbit(roundedArcTangent(-0.0)));
  EXPECT_EQ(roundedCosine(-0.0), 1.0);
  EXPECT_TRUE(std::isnan(roundedSine(kInfinity)));
  EXPECT_TRUE(std::isnan(roundedCosine(-kInfinity)));
  EXPECT_TRUE(std::isnan(roundedSine(std::nan(""))));
  EXPECT_TRUE(std::isnan(roundedArcTangent(std::nan(""))));
  EXPECT_EQ(roundedArcTangent(kInfinity), 0x1.921fb54442d18p+0);
  EXPECT_EQ(roundedArcTangent(-kInfinity), -0x1.921fb54442d18p+0);
}

/// For typical angles only: next to a multiple of a quarter turn, the error of C libraries may be
/// larger for huge ones.
TEST(Trigonometry, IsRightToOneUnitWhateverTheSystem) {
  constexpr double kHuge = 1e15;
  for (const Angle& angle : kAngles) {
    if (angle.x > kHuge) continue;
    EXPECT_LE(distance(sine(angle.x), angle.sine), 1) << angle.x;
    EXPECT_LE(distance(cosine(angle.x), angle.cosine), 1) << angle.x;
  }
  for (const Tangent& tangent : kTangents) {
    EXPECT_LE(distance(arcTangent(tangent.x), tangent.arc), 1) << tangent.x;
  }
}

TEST(Trigonometry, HardlyEverDiffersFromTheRoundedOne) {
  std::mt19937_64 dice(11);
  std::uniform_real_distribution<double> angles(-13.0, 13.0);
  std::uniform_real_distribution<double> tangents(-30.0, 30.0);
  constexpr int kTries = 20000;
  int different = 0;
  const auto compare = [&different](double a, double b) {
    EXPECT_LE(distance(a, b), 1);
    if (a != b) ++different;
  };
  for (int i = 0; i < kTries; ++i) {
    const double angle = angles(dice);
    const double tangent = tangents(dice);
    compare(sine(angle), roundedSine(angle));
    compare(cosine(angle), roundedCosine(angle));
    compare(arcTangent(tangent), roundedArcTangent(tangent));
  }
  EXPECT_LT(different, 3 * kTries / 200);
}

}  // namespace
}  // namespace quillon::geometry
