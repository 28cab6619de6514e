// The size model of the output pages: see output_size.h.
#include "output_size.h"

#include <cstring>

#include "bounded_text.h"
#include "option_core.h"
#include "portable/zvw_portable.h"

namespace zv {

int PitchToResolution(long pitch)
{
    if (pitch <= 0)
        return 300;
    const long dpi = (pitch + 253999) / pitch;
    return dpi == 301 ? 300 : static_cast<int>(dpi);
}

double ResolutionOrDefault(double dpi)
{
    return dpi == 0.0 ? kDefaultResolution : dpi;
}

bool IsMultiples(const char* units)
{
    return units != nullptr && EqualNoCase(units, "MULT");
}

double RoundStepFor(const char* units)
{
    return units != nullptr && EqualNoCase(units, "PIX") ? 1.0 : 0.01;
}

namespace {

//                                   width  height aspect shown  distort linked
constexpr ScalingRule kRules[kScalingModeCount] = {
    {true, true, true, true, false, true},     // Fit in Frame
    {true, false, true, true, false, true},    // Fit in Width
    {false, true, true, true, false, true},    // Fit in Height
    {true, true, false, false, true, false},   // Distort to Frame
    {false, false, true, true, true, false},   // Distort Aspect Ratio
    {true, true, false, false, false, true},   // Maintain Aspect Ratio
    {true, true, false, false, false, true},   // Fit in Display
    {true, false, true, true, false, true},    // Fit in Display Width
};

constexpr const char* kModeTexts[kScalingModeCount] = {
    "Fit in Frame",          "Fit in Width",   "Fit in Height",  "Distort to Frame", "Distort Aspect Ratio",
    "Maintain Aspect Ratio", "Fit in Display", "Fit in Display Width",
};

}  // namespace

const ScalingRule& ScalingRuleOf(int index)
{
    return index >= 0 && index < kScalingModeCount ? kRules[index] : kRules[0];
}

const char* ScalingModeText(int index)
{
    return index >= 0 && index < kScalingModeCount ? kModeTexts[index] : kModeTexts[0];
}

double LinkedHeight(double width, double aspect, bool multiples)
{
    return multiples ? width : width / aspect;
}

double LinkedWidth(double height, double aspect, bool multiples)
{
    return multiples ? height : aspect * height;
}

double PhysicalAspect(double width, double height, double horzRes, double vertRes)
{
    if (width == 0.0 || height == 0.0 || horzRes == 0.0 || vertRes == 0.0)
        return 0.0;
    return (width / horzRes) / (height / vertRes);
}

double ToPixels(double value, const char* units, double dpi)
{
    return zvw::Convert(units, "PIX", value, dpi, 0.0);
}

bool ChangeRecordUnits(OutputSizeState& state, const char* newUnits)
{
    CopyBounded(state.units, newUnits != nullptr ? newUnits : "IN");
    state.roundStep = RoundStepFor(state.units);
    if (EqualNoCase(state.units, state.lastUnits))
        return false;
    // A size in multiples says nothing about the picture's real size: the
    // pixels last known before "MULT" are what a real unit starts from.
    if (IsMultiples(state.lastUnits)) {
        state.width = state.pixelWidth;
        state.height = state.pixelHeight;
        CopyBounded(state.lastUnits, "PIX");
    }
    state.width = zvw::Convert(state.lastUnits, state.units, state.width, state.horzRes, 0.0);
    state.height = zvw::Convert(state.lastUnits, state.units, state.height, state.vertRes, 0.0);
    CopyBounded(state.lastUnits, state.units);
    return true;
}

SizeBounds OutputSizeBounds(const char* units, double dpi, bool changeInHand)
{
    if (IsMultiples(units))
        return {0.0, 100.0};
    SizeBounds bounds;
    bounds.min = zvw::Convert("PIX", units, 0.0, dpi, 0.0);
    bounds.max = zvw::Convert("PIX", units, kMaxSizeValue, dpi, kMaxSizeValue);
    if (changeInHand)
        bounds.min += zvw::Convert("PIX", units, 1.0, dpi, 1.0);
    return bounds;
}

}  // namespace zv
