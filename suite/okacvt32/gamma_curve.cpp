#include "gamma_curve.h"

#include <algorithm>
#include <cmath>

#include "message_codes.h"

namespace zvcvt {
namespace {

int Limit(int value)
{
    return std::clamp(value, -100, 100);
}

}  // namespace

double CurveLevel(double t, int gamma, int contrast, int bright)
{
    gamma = Limit(gamma);
    contrast = Limit(contrast);
    bright = Limit(bright);
    t = std::clamp(t, 0.0, 1.0);

    double level = std::pow(t, std::exp2(-gamma / 50.0));
    if (contrast == 100) {
        // An endless slope: everything above the middle is white.
        level = level > 0.5 ? 1.0 : 0.0;
    } else {
        double slope = (100.0 + contrast) / (100.0 - contrast);
        level = (level - 0.5) * slope + 0.5;
    }
    level += bright / 100.0;
    return std::clamp(level, 0.0, 1.0);
}

short FillGammaTable(int count, int gamma, int contrast, int bright, unsigned char* table)
{
    if (count < 0 || (count > 0 && table == nullptr)) return kCvtInvalidParameter;
    if (count == 0) return 0;
    int top = std::min(count - 1, 255);
    for (int x = 0; x < count; ++x) {
        double t = count == 1 ? 0.0 : static_cast<double>(x) / (count - 1);
        long height = std::lround(CurveLevel(t, gamma, contrast, bright) * (count - 1));
        table[x] = static_cast<unsigned char>(std::clamp<long>(height, 0, top));
    }
    return 0;
}

}  // namespace zvcvt
